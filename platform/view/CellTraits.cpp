#include "platform/view/CellTraits.h"

#include <algorithm>

namespace platform {

constinit const CellTraits CellTraits::c_none;

CellList::CellList(const std::list<SimplePropVal>& values)
    : m_values(values.begin(), values.end()) {
    m_texts.reserve(m_values.size());
    for (const SimplePropVal& value : m_values)
        m_texts.push_back(value.to_wstring());
}

bool CellList::IsEqual(const std::list<SimplePropVal>& values, std::uint64_t epoch) {
    if (values.size() != m_values.size())
        return false;
    const auto isKnown = [&](const Source& source) {
        return source.list == &values && source.epoch == epoch;
    };
    if (std::ranges::any_of(m_sources, isKnown))
        return true;
    if (!std::ranges::equal(values, m_values))
        return false;
    m_sources[m_nextSource] = {&values, epoch};
    m_nextSource = (m_nextSource + 1) % m_sources.size();
    return true;
}

CellTraitsTable::Column& CellTraitsTable::At(NameId column) {
    if (column >= m_columns.size())
        m_columns.resize(column + 1);
    return m_columns[column];
}

CellTraitsPtr CellTraitsTable::GetTraits(NameId column, const CellTraits& traits) {
    if (traits == CellTraits::c_none)
        return nullptr;
    auto& known = At(column).traits;
    const auto found = std::ranges::find_if(
        known.items, [&](const CellTraitsPtr& item) { return item && *item == traits; });
    if (found != known.items.end())
        return *found;
    CellTraitsPtr made(new SharedCellTraits(traits));
    known.Add(made);
    return made;
}

CellListPtr CellTraitsTable::GetList(NameId column, const std::list<SimplePropVal>& values,
                                     std::uint64_t epoch) {
    if (values.empty())
        return nullptr;
    auto& known = At(column).lists;
    const auto found = std::ranges::find_if(
        known.items, [&](const CellListPtr& item) { return item && item->IsEqual(values, epoch); });
    if (found != known.items.end())
        return *found;
    CellListPtr made(new CellList(values));
    known.Add(made);
    return made;
}

} // namespace platform
