// Which cells and which head a column has: one table, a column a row.
#pragma once

#include "cells/CellArena.h"
#include "columns/ColumnInfo.h"
#include "columns/headers/ProductTreeHeaderImpl.h"
#include "host/view/ITreeTableRow.h"

#include <memory>
#include <span>
#include <string>

class IfProductTreeData;

namespace productTree {

/// What every cell is made with, beside its column.
struct CellOrigin {
    const std::shared_ptr<CellArena>& arena;
    IfProductTreeData* data;
    const TreeRowPtr& row;
    const UniqueMetaObjectKey& key;
};

using CellMaker = std::shared_ptr<ProductTreeCellImpl> (*)(const ColumnInfo&, const CellOrigin&);
using HeaderMaker = std::shared_ptr<ProductTreeHeaderImpl> (*)(
    const ColumnInfo&, IfProductTreeData*, const boost::intrusive_ptr<ITreeTableModel>&);

/// A null maker stands for what the list of values or the type of the column says.
struct ColumnTableRow {
    const std::wstring& columnId;
    CellMaker objectCell;
    CellMaker groupCell;
    HeaderMaker head;
};

std::span<const ColumnTableRow> GetColumnTable();

/// Null for a column without a cell in such rows.
std::shared_ptr<ProductTreeCellImpl> CreateObjectCell(const ColumnInfo& column,
                                                      const CellOrigin& origin);
std::shared_ptr<ProductTreeCellImpl> CreateGroupCell(const ColumnInfo& column,
                                                     const CellOrigin& origin);
/// Null for a column that has no head. Name and designation are not asked for here: the control
/// makes theirs.
std::shared_ptr<ProductTreeHeaderImpl>
CreateHeader(const ColumnInfo& column, IfProductTreeData* data,
             const boost::intrusive_ptr<ITreeTableModel>& model);

} // namespace productTree
