// What a row does. One item drives one row: it owns the row's cells, knows which object or section
// the row stands for, answers what may be done with the row and does it, and pushes the row's state
// to the view. The control makes items at each full build and never looks at the kind of a row.
#pragma once

#include "cells/CellArena.h"
#include "cells/ProductTreeCellImpl.h"
#include "columns/ColumnInfo.h"
#include "host/VariantMarking.h"
#include "host/view/ITreeTableRow.h"
#include "items/ItemAttributes.h"
#include "items/ProductTreeItemData.h"
#include "items/ProductTreeItemId.h"
#include "items/RowTally.h"

#include <list>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

class IfProductTreeData;
class LEventsHandler;

namespace productTree {

class ProductTreeItemImpl;

/// The item of a row; null for a row without one.
inline ProductTreeItemImpl* FindItemOfRow(const ITreeTableRow& row) {
    const ProductTreeItemData* const data = row.GetData();
    return data ? data->GetImpl().get() : nullptr;
}

/// Calls `callback` with each child row in turn until it answers false; a missing one is passed
/// over. True when no answer was false.
template <class Callback>
bool ForEachChildRow(const ITreeTableRow& row, const Callback& callback) {
    const std::size_t count = row.GetChildCount();
    for (std::size_t i = 0; i < count; ++i) {
        ITreeTableRow* const child = row.GetChild(i);
        if (child && !callback(*child))
            return false;
    }
    return true;
}

class ProductTreeItemImpl {
public:
    using Key = UniqueMetaObjectKey;

    /// `data` outlives the item.
    ProductTreeItemImpl(TreeRowPtr row, IfProductTreeData* data);
    ProductTreeItemImpl(const ProductTreeItemImpl&) = delete;
    ProductTreeItemImpl& operator=(const ProductTreeItemImpl&) = delete;
    virtual ~ProductTreeItemImpl();

    /// The row's columns are offered in the heads when several rows are selected.
    virtual bool IsGroupEditable() const = 0;
    /// The row is a group of like objects.
    virtual bool IsGroup() const = 0;
    virtual std::shared_ptr<ProductTreeItemId> GetId() const = 0;
    virtual bool CanHighlight() const = 0;
    virtual bool CanDelete() const = 0;
    /// Asks the user and deletes. True when anything was deleted; the row itself is not touched.
    virtual bool Delete() = 0;
    /// Adds the keys that deleting this row removes.
    virtual void CollectKeysToDelete(std::set<Key>& keys) const = 0;
    /// Adds the keys that this row stands for when it is selected.
    virtual void CollectSelectionKeys(std::vector<Key>& keys) const = 0;
    /// Sorts the row's keys into those whose cell in the column holds a link and those without. A
    /// row without such a cell adds nothing.
    virtual void SplitByHypertext(std::vector<Key>& with, std::vector<Key>& without,
                                  const std::wstring& columnId) const = 0;
    /// Finds out whether the row's objects agree with their sources, and remembers it. A row that
    /// stands for others goes by what they remember, so that they come first.
    virtual bool UpdateActual() = 0;
    /// The parts of the designation that nobody may change.
    virtual std::set<int> GetLockedMarkingParts() const = 0;
    /// The row holds something that can be given a position.
    virtual bool CanSetPosition() const = 0;
    /// Numbers what the row holds from `next` on, and gives the next free number.
    virtual unsigned SetPosition(unsigned next, ProductInfObjChangesResult& changes) = 0;
    virtual bool CanClearPosition() const = 0;
    virtual void ClearPosition(ProductInfObjChangesResult& changes) = 0;
    /// Lets the user choose the document code of the designation. True when that changed anything.
    virtual bool EditDocCode();
    /// These two forward to the cell of the column; a default result without one.
    virtual TreeActionResult OnCellPopupCommand(const std::wstring& columnId, int command);
    /// False without such a cell, and for a command that is nothing to it.
    virtual bool ExecCellCommand(const std::wstring& columnId, int command, TreeActionResult& out);
    /// The name as the row shows it.
    virtual SharedText GetDisplayName(const SharedText& text) const;
    /// The count behind a name, such as (x3); empty for a row that stands for one object.
    virtual SharedText GetCountSuffix(int withBillets) const;
    /// The number of objects that the row counts; 1 for `withBillets` counts billets, too.
    virtual unsigned GetCount(int withBillets) const = 0;
    /// Adds the row's object keys, all the way down.
    virtual void AppendKey(std::vector<Key>& keys) const = 0;
    virtual bool HasKey(const Key& key) const = 0;
    /// The object whose documents are shown for the row.
    virtual Key GetDocumentKey() const = 0;
    /// The row's own object; the null key for the root row and for sections.
    virtual Key GetObjectKey() const = 0;
    /// The name follows the section: a new row of this kind opens no name editor.
    virtual bool IsSectionNameLinked() const = 0;
    /// What is sent to the sources of the row's objects.
    virtual std::vector<std::pair<Key, PropValue>>
    GetValuesToTransmit(const std::wstring& columnId) const = 0;
    virtual bool CanTransmitToSource(const std::wstring& columnId) const = 0;
    virtual bool CanSetBySource(const std::wstring& columnId) const;
    /// Pushes the state of this row and of all rows below it to the view.
    void UpdateRow();
    /// Opens the menu of the row's cell; false when there is nothing to offer. The choice goes to
    /// `handler`.
    virtual bool TrackCellContextMenu(const std::wstring& columnId, LEventsHandler* handler);
    virtual void UpdateIcon() = 0;
    /// Makes every cell read its value again.
    virtual void UpdateCells();
    /// Null for a column that has no cell in this kind of row.
    virtual std::shared_ptr<ProductTreeCellImpl> CreateCell(const ColumnInfo& column);

    ITreeTableRow& GetRow() const { return *m_row; }
    /// The same for this row alone, where those below it are up to date.
    void UpdateThisRow();
    /// A child row has been updated, and what belongs to it is at hand.
    virtual void OnChildRowUpdated(ProductTreeItemImpl& child);
    /// Has the memory of the cells fetched while something else is done.
    void FetchAhead() const {
        if (m_cells)
            m_cells->FetchAhead();
    }
    /// What the row above counts of this one from now on; the answer is what it has counted until
    /// now.
    RowShare GiveShare(const RowShare& share) { return std::exchange(m_share, share); }

    /// Null for a row without the check box.
    AggrIntoProductAttribute* GetAggrAttribute() const { return m_aggrAttribute; }
    RegWithDescAttribute* GetRegAttribute() const { return m_regAttribute; }
    bool IsActual() const { return m_actual; }
    /// Null when there is none.
    ProductTreeCellImpl* FindCell(const std::wstring& columnId) const;
    /// The same for the id as a column holds it, which is found without reading texts.
    ProductTreeCellImpl* FindCell(const SharedText& columnId) const;
    /// The value that the row's cell shows; empty without a cell.
    const SimplePropVal& GetCellValue(const SharedText& columnId) const;
    /// As the cell's MakeChanges; no changes without a cell.
    ProductInfObjChangesResult MakeCellChanges(const SharedText& columnId, const PropValue& value,
                                               std::optional<int> extra);
    /// The designation as it stands in the row's marking editor; empty without one.
    VariantMarking GetMarkingFromRow() const;
    /// Writes it there, and gives the text that is shown; empty without an editor.
    SharedText SetMarkingToRow(const VariantMarking& marking) const;
    /// Among parts that nobody may change: the document code, which is not shown then.
    static bool IsMarkingCodeIn(const std::set<int>& lockedParts);
    bool IsParentGroup() const;
    /// Makes the cells of this row and of all rows below it, those below first. Name and
    /// designation come first among them and have no slot in the row.
    void RebuildCells(const std::list<ColumnInfo>& columns);

    template <class Callback>
    void ForEachCell(const Callback& callback) const {
        for (ProductTreeCellImpl* const cell : GetCells())
            callback(*cell);
    }

    /// Calls `callback` with the item of each child row in turn until it answers false. Rows
    /// without item are passed over. True when no answer was false.
    template <class Callback>
    bool ForEachChildItem(const Callback& callback) const {
        return ForEachChildRow(*m_row, [&](const ITreeTableRow& child) {
            ProductTreeItemImpl* const item = FindItemOfRow(child);
            return !item || callback(*item);
        });
    }

    /// As soon as `question` is true of one child item; false without any.
    template <class Question>
    bool HasChildItem(const Question& question) const {
        return !ForEachChildItem(
            [&](const ProductTreeItemImpl& child) { return !question(child); });
    }

protected:
    // Positions of a row that stands for those below it.
    bool CanSetChildPositions() const;
    bool CanClearChildPositions() const;
    void ClearChildPositions(ProductInfObjChangesResult& changes);
    /// One number after the other; the answer is the next that is free.
    unsigned SetChildPositions(unsigned next, ProductInfObjChangesResult& changes);

    /// The menu of one row, with those of its commands.
    static bool ShowItemMenu(const std::set<int>& commands, LEventsHandler* handler);

    /// The text of a designation, without its document code where that part is locked.
    static SharedText MakeShownMarking(const VariantMarking& marking, const std::set<int>& locked);

    void RebuildChildCells(const std::list<ColumnInfo>& columns);
    void UpdateChildRows();
    /// Each child item in turn, while the memory of the next one is on its way: a hundred thousand
    /// rows would mostly wait for it.
    template <class Callback>
    void ForEachChildFetched(const Callback& callback) const;
    /// All rows below are about to be updated.
    virtual void OnChildRowsUpdate();
    /// Pushes what there is beside the icon, the cells and the boxes.
    virtual void UpdateRowStyle();
    /// Empty before the first rebuild.
    std::span<ProductTreeCellImpl* const> GetCells() const {
        return m_cells ? m_cells->GetCells() : std::span<ProductTreeCellImpl* const>();
    }

    /// A new one from each rebuild on.
    std::shared_ptr<CellArena> m_cells;
    // Members of the derived class: two allocations a row would be felt.
    AggrIntoProductAttribute* m_aggrAttribute = nullptr;
    RegWithDescAttribute* m_regAttribute = nullptr;
    bool m_actual = true;
    TreeRowPtr m_row;
    IfProductTreeData* m_data;

private:
    RowShare m_share;
};

} // namespace productTree
