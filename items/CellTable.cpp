#include "items/CellTable.h"

#include "cells/MarkingCells.h"
#include "cells/NameCells.h"
#include "columns/PropertyKeys.h"

#include <algorithm>
#include <span>

namespace productTree {

namespace {

using CellPtr = std::shared_ptr<ProductTreeCellImpl>;
using CellMaker = CellPtr (*)(const ColumnInfo&, const CellOrigin&);

struct CellRow {
    const std::wstring& columnId;
    CellMaker make;
};

template <class Cell>
CellPtr Make(const ColumnInfo& column, const CellOrigin& origin) {
    return origin.arena.Make<Cell>(origin.data, origin.row, column, origin.key);
}

// clang-format off
const CellRow c_objectCells[] = {
    {keys::name,    Make<NameCellImpl>},
    {keys::marking, Make<MarkingCellImpl>},
};

const CellRow c_groupCells[] = {
    {keys::name,    Make<NameGroupCellImpl>},
    {keys::marking, Make<MarkingGroupCellImpl>},
};
// clang-format on

CellPtr CreateFrom(std::span<const CellRow> table, const ColumnInfo& column,
                   const CellOrigin& origin) {
    const auto row =
        std::ranges::find_if(table, [&](const CellRow& r) { return r.columnId == column.GetId(); });
    return row == table.end() ? nullptr : row->make(column, origin);
}

} // namespace

CellPtr CreateObjectCell(const ColumnInfo& column, const CellOrigin& origin) {
    return CreateFrom(c_objectCells, column, origin);
}

CellPtr CreateGroupCell(const ColumnInfo& column, const CellOrigin& origin) {
    return CreateFrom(c_groupCells, column, origin);
}

} // namespace productTree
