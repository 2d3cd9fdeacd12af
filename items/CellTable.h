// Which cell a column has in a row: one table for object rows, one for group rows. What a table
// does not name has a cell by its list of values or its type; a column with neither has none.
#pragma once

#include "cells/CellArena.h"
#include "columns/ColumnInfo.h"
#include "host/view/ITreeTableRow.h"

#include <memory>

class IfProductTreeData;

namespace productTree {

/// What every cell is made with, beside its column.
struct CellOrigin {
    const std::shared_ptr<CellArena>& arena;
    IfProductTreeData* data;
    const TreeRowPtr& row;
    const UniqueMetaObjectKey& key;
};

std::shared_ptr<ProductTreeCellImpl> CreateObjectCell(const ColumnInfo& column,
                                                      const CellOrigin& origin);
std::shared_ptr<ProductTreeCellImpl> CreateGroupCell(const ColumnInfo& column,
                                                     const CellOrigin& origin);

} // namespace productTree
