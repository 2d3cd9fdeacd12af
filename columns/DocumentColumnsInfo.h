// The columns of one column set: which there are, in which order, how wide. The control keeps one a
// column set key for its whole life, so that order and widths come back with the key. Fed by the
// property descriptions of the product data on one side and by what the user did in the view on the
// other; it calls neither.
#pragma once

#include "columns/ColumnInfo.h"

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace productTree {

class DocumentColumnsInfo {
public:
    using Descriptions = std::vector<const IfPropertyDescription*>;

    virtual ~DocumentColumnsInfo() = default;

    /// Makes the name column from the description with its number. One that is already there stays.
    void SetNameColumn(const Descriptions& descriptions);
    void SetMarkingColumn(const Descriptions& descriptions);
    /// Rebuilds the plain list in the order of `visibleIds`. A column that was there stays as it
    /// is, a new one comes from its description; a number with neither is left out.
    void SetColumns(const std::vector<unsigned long>& visibleIds, const Descriptions& descriptions);
    /// Replaces the count columns per embodiment. Widths are kept for those that stay, as long as
    /// they come in the same order.
    void SetEmbodimentColumns(std::list<ColumnInfo> columns);
    /// Takes over widths by column id.
    void UpdateWidths(const std::map<std::wstring, double>& widths);

    /// The columns in shown order, without name and marking; in embodiment mode the count columns
    /// per embodiment stand in place of "count", or at the end without it.
    std::list<ColumnInfo> GetShownColumns(bool embodimentMode) const;
    /// The plain list is just these properties in this order, name and marking aside.
    bool IsSameColumns(const std::vector<unsigned long>& ids) const;

    /// Null until made.
    ColumnInfo* GetNameColumn() { return m_nameColumn.get(); }
    ColumnInfo* GetMarkingColumn() { return m_markingColumn.get(); }
    std::list<ColumnInfo>& GetColumns() { return m_columns; }
    const std::list<ColumnInfo>& GetEmbodimentColumns() const { return m_embodimentColumns; }

private:
    std::unique_ptr<ColumnInfo> m_nameColumn;
    std::unique_ptr<ColumnInfo> m_markingColumn;
    std::list<ColumnInfo> m_columns;
    std::list<ColumnInfo> m_embodimentColumns;
};

} // namespace productTree
