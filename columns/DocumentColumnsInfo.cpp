#include "columns/DocumentColumnsInfo.h"

#include "columns/PropertyKeys.h"
#include "host/IfPropertyDescription.h"
#include "host/ProductProperties.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace productTree {

namespace {

using ProductProperties::GetPropId;

std::vector<unsigned long> WithoutFixedColumns(std::vector<unsigned long> ids) {
    std::erase(ids, ProductProperties::nameId);
    std::erase(ids, ProductProperties::markingId);
    return ids;
}

void MakeFixedColumn(std::unique_ptr<ColumnInfo>& column, unsigned long number,
                     const DocumentColumnsInfo::Descriptions& descriptions) {
    if (column)
        return;
    const auto found = std::ranges::find_if(
        descriptions, [&](const IfPropertyDescription* d) { return d && d->GetId() == number; });
    if (found != descriptions.end())
        column = std::make_unique<ColumnInfo>(*found);
}

void TakeWidths(std::list<ColumnInfo>& columns, const std::map<std::wstring, double>& widths) {
    for (ColumnInfo& column : columns) {
        const auto width = widths.find(column.GetId());
        if (width != widths.end())
            column.SetWidth(width->second);
    }
}

} // namespace

void DocumentColumnsInfo::SetNameColumn(const Descriptions& descriptions) {
    MakeFixedColumn(m_nameColumn, ProductProperties::nameId, descriptions);
}

void DocumentColumnsInfo::SetMarkingColumn(const Descriptions& descriptions) {
    MakeFixedColumn(m_markingColumn, ProductProperties::markingId, descriptions);
}

void DocumentColumnsInfo::SetColumns(const std::vector<unsigned long>& visibleIds,
                                     const Descriptions& descriptions) {
    std::unordered_map<unsigned long, const IfPropertyDescription*> described;
    for (const IfPropertyDescription* description : descriptions) {
        if (description)
            described.emplace(description->GetId(), description);
    }
    std::unordered_map<unsigned long, const ColumnInfo*> present;
    for (const ColumnInfo& column : m_columns)
        present.emplace(GetPropId(column.GetId()), &column);

    std::list<ColumnInfo> columns;
    for (const unsigned long number : WithoutFixedColumns(visibleIds)) {
        if (const auto old = present.find(number); old != present.end())
            columns.push_back(*old->second);
        else if (const auto found = described.find(number); found != described.end())
            columns.emplace_back(found->second);
    }
    m_columns = std::move(columns);
}

void DocumentColumnsInfo::SetEmbodimentColumns(std::list<ColumnInfo> columns) {
    auto searchFrom = m_embodimentColumns.cbegin();
    for (ColumnInfo& column : columns) {
        const auto old =
            std::find_if(searchFrom, m_embodimentColumns.cend(),
                         [&](const ColumnInfo& c) { return c.GetId() == column.GetId(); });
        if (old == m_embodimentColumns.cend())
            continue;
        column.SetWidth(old->GetWidth());
        searchFrom = old;
    }
    m_embodimentColumns = std::move(columns);
}

void DocumentColumnsInfo::UpdateWidths(const std::map<std::wstring, double>& widths) {
    TakeWidths(m_columns, widths);
    TakeWidths(m_embodimentColumns, widths);
}

std::list<ColumnInfo> DocumentColumnsInfo::GetShownColumns(bool embodimentMode) const {
    if (!embodimentMode)
        return m_columns;
    std::list<ColumnInfo> shown;
    const auto count = std::ranges::find(m_columns, keys::count, &ColumnInfo::GetId);
    std::copy(m_columns.begin(), count, std::back_inserter(shown));
    shown.insert(shown.end(), m_embodimentColumns.begin(), m_embodimentColumns.end());
    if (count != m_columns.end())
        std::copy(std::next(count), m_columns.end(), std::back_inserter(shown));
    return shown;
}

bool DocumentColumnsInfo::IsSameColumns(const std::vector<unsigned long>& ids) const {
    return std::ranges::equal(m_columns, WithoutFixedColumns(ids), {},
                              [](const ColumnInfo& column) { return GetPropId(column.GetId()); });
}

} // namespace productTree
