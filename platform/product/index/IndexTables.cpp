#include "platform/product/index/IndexTables.h"

#include "platform/product/model/PropertyNumbers.h"

#include <algorithm>

namespace platform {

namespace {

std::uint32_t HashOf(const UniqueMetaObjectKey& key) {
    const std::size_t hash = key.GetHash();
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

struct NamesPart {
    const IndexTables& tables;
    const UniqueMetaObjectKey& key;
    std::uint32_t hash;

    bool operator()(const IndexTables::NumberEntry& entry) const {
        if (entry.hash != hash)
            return false;
        const std::uint32_t place = tables.places[entry.number - 1];
        return place != IndexTables::none && tables.parts[place].key == key;
    }
};

} // namespace

void ObjectEntry::ReadName() {
    name = record->name.IsEmpty() ? PropValue() : PropValue(SimplePropVal(record->name));
}

void ObjectEntry::ReadMarking() {
    hasMarking = !record->marking.IsEmpty();
    marking = hasMarking ? record->marking.GetPropValue() : PropValue();
}

void ObjectEntry::ReadSection(SharedSections& sections) {
    section = sections.Get(record->section);
}

void ObjectEntry::ReadProperties(PropertyLayouts& layouts) {
    layout = &layouts.Get(record->properties);
    values = record->properties.data();
    valueCount = static_cast<std::uint32_t>(record->properties.size());
}

void ObjectEntry::ReadGrouping() {
    const auto get = [this](unsigned long number) {
        const PropValue* const value = FindProperty(number);
        return value ? *value : PropValue();
    };
    grouping = MakeGrouping(*record, record->name, get(number::material), get(number::mass));
}

GroupingRecord MakeGrouping(const ObjectRecord& record, const SharedText& name,
                            const PropValue& material, const PropValue& mass) {
    return meta_data::grouping::MakeGroupingRecord(
        record.section, record.marking.Make(VariantMarkingData::MakeAll, false, false), name,
        material.to_wstring(), mass.IsEmpty() ? std::nullopt : std::optional(mass.to_double()));
}

void PartEntry::ReadOwnership() {
    hasOwnValues = isUse && (!record->properties.empty() || !record->links.empty());
    hasCounts = !record->counts.empty();
    hasLinks = !record->links.empty() || !object->record->links.empty();
    isPlain = !isRoot && !hasOwnValues && !hasLinks && !hasReadOnlyProperties;
}

std::size_t SharedSections::Hash::operator()(const SPCSection& section) const {
    std::size_t hash = 0;
    for (const std::int32_t number : section.numbers)
        hash = hash * 31 + static_cast<std::size_t>(number);
    return hash;
}

const PropValue& SharedSections::Get(const SPCSection& section) {
    if (!m_last || !(m_last->first == section))
        m_last = &*m_values.try_emplace(section, spc_section::ToPropValue(section)).first;
    return m_last->second;
}

void SharedSections::Clear() {
    m_values.clear();
    m_last = nullptr;
}

std::size_t SharedParts::Hash::operator()(const ProductPart& part) const {
    const PartAttributes& attributes = part.attributes;
    std::size_t hash = (attributes.inProduct ? 1u : 0u) | (attributes.separate ? 2u : 0u) |
                       (attributes.hiddenA ? 4u : 0u) | (attributes.hiddenB ? 8u : 0u);
    for (const meta_data::SP::StyleId style : part.used.GetStyles())
        hash = (hash ^ static_cast<std::size_t>(style)) * 0x9E3779B97F4A7C15u;
    return hash ^ (hash >> 32);
}

const ProductPart& SharedParts::Get(const ProductPart& part) {
    if (!m_last || !(*m_last == part))
        m_last = &*m_parts.insert(part).first;
    return *m_last;
}

void SharedParts::Clear() {
    m_parts.clear();
    m_last = nullptr;
}

std::uint32_t IndexTables::FindPlace(const UniqueMetaObjectKey& key) const {
    if (numbers.IsEmpty() || key.IsEmpty())
        return none;
    // Nearly every key that is asked about is a copy of one that stands here.
    const std::uint32_t number = key.GetHint();
    const std::uint32_t place = number < places.size() ? places[number] : none;
    if (place != none && parts[place].key == key)
        return place;
    const std::uint32_t hash = HashOf(key);
    const NumberEntry& entry = numbers.Find(hash, NamesPart{*this, key, hash});
    return entry.IsFree() ? none : places[entry.number - 1];
}

void IndexTables::FetchAhead(const UniqueMetaObjectKey& key) const {
    const std::uint32_t number = key.GetHint();
    const std::uint32_t place = number < places.size() ? places[number] : none;
    if (place != none)
        __builtin_prefetch(&parts[place], 1);
}

void IndexTables::ClearNumbers() {
    numbers.Reset(parts.size());
    places.clear();
    places.reserve(parts.size());
}

bool IndexTables::HasRoom(std::size_t count) const {
    return numbers.HasRoom(places.size() + count);
}

void IndexTables::Enter(const PartEntry& part) {
    // The root may have no key, and the null key names nothing.
    if (part.key.IsEmpty())
        return;
    const auto number = static_cast<std::uint32_t>(places.size());
    const std::uint32_t hash = HashOf(part.key);
    NumberEntry& entry = numbers.Find(hash, NamesPart{*this, part.key, hash});
    if (!entry.IsFree())
        return;
    entry = {hash, number + 1};
    places.push_back(static_cast<std::uint32_t>(&part - parts.data()));
    part.key.SetHint(number);
    part.recordKey.SetHint(number);
}

} // namespace platform
