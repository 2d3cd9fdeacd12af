// What a row does. One item drives one row: it owns the row's cells, knows which object or section
// the row stands for and pushes the row's state to the view. The control makes items at each full
// build and never looks at the kind of a row.
#pragma once

#include "cells/CellArena.h"
#include "cells/ProductTreeCellImpl.h"
#include "columns/ColumnInfo.h"
#include "host/VariantMarking.h"
#include "host/view/ITreeTableRow.h"
#include "items/ProductTreeItemId.h"

#include <list>
#include <memory>
#include <set>
#include <string>
#include <vector>

class IfProductTreeData;

namespace productTree {

class ProductTreeItemImpl;

/// The item of a row; null for a row without one.
ProductTreeItemImpl* FindItemOfRow(const ITreeTableRow& row);

class ProductTreeItemImpl {
public:
    /// `data` outlives the item.
    ProductTreeItemImpl(TreeRowPtr row, IfProductTreeData* data);
    ProductTreeItemImpl(const ProductTreeItemImpl&) = delete;
    ProductTreeItemImpl& operator=(const ProductTreeItemImpl&) = delete;
    virtual ~ProductTreeItemImpl();

    /// The row is a group of like objects.
    virtual bool IsGroup() const = 0;
    virtual std::shared_ptr<ProductTreeItemId> GetId() const = 0;
    /// Sorts the row's keys into those whose cell in the column holds a link and those without. A
    /// row without such a cell adds nothing.
    virtual void SplitByHypertext(std::vector<UniqueMetaObjectKey>& with,
                                  std::vector<UniqueMetaObjectKey>& without,
                                  const std::wstring& columnId) const = 0;
    /// Finds out whether the row's objects agree with their sources, and remembers it. A row that
    /// stands for others goes by what they remember, so that they come first.
    virtual bool UpdateActual() = 0;
    /// The parts of the designation that nobody may change.
    virtual std::set<int> GetLockedMarkingParts() const = 0;
    /// The name as the row shows it.
    virtual SharedText GetDisplayName(const SharedText& text) const;
    /// The count behind a name, such as (x3); empty for a row that stands for one object.
    virtual std::wstring GetCountSuffix(int withBillets) const;
    /// The number of objects that the row counts; 1 for `withBillets` counts billets, too.
    virtual unsigned GetCount(int withBillets) const = 0;
    /// Pushes the state of this row and of all rows below it to the view.
    virtual void UpdateRow();
    virtual void UpdateIcon() = 0;
    /// Makes every cell read its value again.
    virtual void UpdateCells();
    /// Null for a column that has no cell in this kind of row.
    virtual std::shared_ptr<ProductTreeCellImpl> CreateCell(const ColumnInfo& column);

    ITreeTableRow& GetRow() const { return *m_row; }
    bool IsActual() const { return m_actual; }
    /// Null when there is none.
    ProductTreeCellImpl* FindCell(const std::wstring& columnId) const;
    /// The designation as it stands in the row's marking editor; empty without one.
    VariantMarking GetMarkingFromRow() const;
    /// Writes it there, and gives the text that is shown; empty without an editor.
    SharedText SetMarkingToRow(const VariantMarking& marking) const;
    /// Makes the cells of this row and of all rows below it, those below first. Name and
    /// designation come first among them and have no slot in the row.
    void RebuildCells(const std::list<ColumnInfo>& columns);

    /// Calls `callback` with the item of each child row in turn until it answers false. Rows
    /// without item are passed over. True when no answer was false.
    template <class Callback>
    bool ForEachChildItem(const Callback& callback) const {
        const std::size_t count = m_row->GetChildCount();
        for (std::size_t i = 0; i < count; ++i) {
            const ITreeTableRow* child = m_row->GetChild(i);
            ProductTreeItemImpl* item = child ? FindItemOfRow(*child) : nullptr;
            if (item && !callback(*item))
                return false;
        }
        return true;
    }

protected:
    /// The text of a designation, without its document code where that part is locked.
    static SharedText MakeShownMarking(const VariantMarking& marking, const std::set<int>& locked);

    /// Where the row's cells are made; a new one from each rebuild on.
    CellArena& GetArena();

    std::vector<std::shared_ptr<ProductTreeCellImpl>> m_cells;
    bool m_actual = true;
    TreeRowPtr m_row;
    IfProductTreeData* m_data;

private:
    void PutCellInFront(const ColumnInfo& column);

    std::shared_ptr<CellArena> m_arena;
};

} // namespace productTree
