#include "platform/product/model/PropertyLookup.h"

#include "host/ProductProperties.h"
#include "platform/product/model/PropertyNumbers.h"

#include <algorithm>
#include <cstdint>

namespace platform {

namespace {

/// A material has a name here, and nothing else.
unsigned long NumberOf(const std::wstring& path) {
    return path == L"material.name" ? number::material : ProductProperties::GetPropId(path);
}

} // namespace

bool BelongsToObject(unsigned long number) {
    constexpr unsigned long numbers[] = {ProductProperties::nameId, ProductProperties::markingId,
                                         number::section,           number::material,
                                         number::density,           number::mass,
                                         number::position,          number::count};
    return std::find(std::begin(numbers), std::end(numbers), number) != std::end(numbers);
}

bool IsStructured(unsigned long number) {
    return number == ProductProperties::markingId || number == number::section;
}

void PropertyLookup::Use(const PropertyDescriptions& descriptions) {
    m_descriptions = &descriptions;
    Forget();
}

void PropertyLookup::Forget() {
    m_entries = {};
    m_entryCount = 0;
    m_last = m_entries.data();
}

PropertyLookup::Entry& PropertyLookup::FindNext(const SharedText& path) {
    Entry& last = *m_last;
    Entry& found = FindOrAdd(path);
    last.next = &found;
    return found;
}

PropertyLookup::Entry& PropertyLookup::FindOrAdd(const SharedText& path) {
    const auto address = reinterpret_cast<std::uintptr_t>(&path.Str());
    std::size_t i = ((address >> 4) ^ (address >> 12)) % m_entries.size();
    while (!m_entries[i].path.IsSame(path) && !m_entries[i].path.IsEmpty())
        i = (i + 1) % m_entries.size();
    Entry& entry = m_entries[i];
    if (entry.path.IsSame(path))
        return entry;
    // Texts that come anew with each question would fill any table.
    if (m_entryCount == m_entries.size() / 2) {
        Forget();
        return FindOrAdd(path);
    }
    ++m_entryCount;
    entry = {path, Get(NumberOf(path)), nullptr};
    return entry;
}

PropertyTraits PropertyLookup::Get(unsigned long number) const {
    PropertyTraits traits;
    traits.number = number;
    traits.record = m_descriptions->FindRecord(number);
    traits.isReadOnly = !traits.record || traits.record->isReadOnly;
    traits.belongsToObject = !traits.record || BelongsToObject(number);
    return traits;
}

} // namespace platform
