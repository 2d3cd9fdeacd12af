// The object behind one column's head. With several rows selected the head has an editor; what the
// user leaves there goes as one change set into the cells of all of them. The control makes headers
// anew at each rebuild of the columns and calls them; they hold nothing but their column.
#pragma once

#include "cells/TreeActionResult.h"
#include "columns/ColumnInfo.h"
#include "host/PropValue.h"
#include "host/view/ITreeTableModel.h"

#include <functional>
#include <string>

class IfProductTreeData;

namespace productTree {

class ProductTreeCellImpl;
class ProductTreeItemImpl;
class RowIdIndex;

class ProductTreeHeaderImpl {
public:
    /// `data` outlives the header.
    ProductTreeHeaderImpl(const ColumnInfo& column, IfProductTreeData* data,
                          boost::intrusive_ptr<ITreeTableModel> model);
    ProductTreeHeaderImpl(const ProductTreeHeaderImpl&) = delete;
    ProductTreeHeaderImpl& operator=(const ProductTreeHeaderImpl&) = delete;
    virtual ~ProductTreeHeaderImpl();

    /// Declares the column's head to the view. Called once, right after the header is made.
    virtual void InitEditor() = 0;
    /// The user has left the head's editor.
    virtual TreeActionResult OnValueEdited() = 0;
    virtual TreeActionResult OnClicked();
    virtual TreeActionResult OnPopupCommand(int command);

    bool IsColumn(const std::wstring& id) const { return m_column.GetId() == id; }
    /// Gives the value, in stored units, to the column's cell in every selected row, in one commit.
    /// Rows without such a cell, and values that a cell refuses, are passed over. The result names
    /// the last row that took part.
    TreeActionResult ApplyValueToSelection(const PropValue& value);
    /// False for a member of a selected group: the group row's cell writes to it. `selected` holds
    /// the ids of the selected rows.
    static bool IsRowToApply(const ITreeTableRow& row, const RowIdIndex& selected);

protected:
    /// Each selected row in turn that has a cell in the column and takes part, until `callback`
    /// answers false.
    using RowCallback = std::function<bool(ProductTreeItemImpl&, ProductTreeCellImpl&)>;
    void ForEachRowToApply(const RowCallback& callback) const;
    const SharedText& GetColumnId() const { return m_column.GetSharedId(); }

    ColumnInfo m_column;
    IfProductTreeData* m_data;
    boost::intrusive_ptr<ITreeTableModel> m_model;
};

} // namespace productTree
