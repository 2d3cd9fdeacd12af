#include "platform/view/NameTable.h"

#include <cstddef>
#include <utility>

namespace platform {

namespace {

/// The first of one of 64 pairs of slots. Texts are allocated, so that the lowest bits of their
/// places are all alike.
std::size_t SlotOf(const SharedText& name) {
    const auto place = reinterpret_cast<std::uintptr_t>(&name.Str());
    return static_cast<std::size_t>(place * 0x9E3779B97F4A7C15U >> 58) * 2;
}

} // namespace

NameId NameTable::Add(const SharedText& name) {
    const auto id = static_cast<NameId>(m_names.size());
    if (id > c_maxId)
        return 0;
    m_names.push_back(name);
    m_ids.emplace(name.Str(), id);
    return id;
}

NameId NameTable::IdOf(const SharedText& name) {
    if (name.IsEmpty())
        return 0;
    Recent* const recent = &m_recent[SlotOf(name)];
    for (const Recent* const known : {recent, recent + 1}) {
        if (known->name.IsSame(name))
            return known->id;
    }
    const NameId found = Find(name.Str());
    recent[1] = std::exchange(recent[0], {name, found == c_unknown ? Add(name) : found});
    return recent->id;
}

NameId NameTable::IdOf(const std::wstring& name) {
    const NameId found = Find(name);
    return found == c_unknown ? Add(SharedText(name)) : found;
}

NameId NameTable::Find(const std::wstring& name) const {
    if (name.empty())
        return 0;
    const auto found = m_ids.find(name);
    return found == m_ids.end() ? c_unknown : found->second;
}

} // namespace platform
