#include "control/ProductTreeEmbItemsStates.h"

#include "host/view/ITreeTableModel.h"
#include "items/ProductTreeItemImpl.h"
#include "items/RowIdIndex.h"

namespace productTree {

namespace {

std::shared_ptr<ProductTreeItemId> GetRowId(const ITreeTableRow& row) {
    const ProductTreeItemImpl* item = FindItemOfRow(row);
    return item ? item->GetId() : nullptr;
}

bool HasKey(const ITreeTableRow& row, const UniqueMetaObjectKey& key) {
    const ProductTreeItemImpl* const item = FindItemOfRow(row);
    return item && item->HasKey(key);
}

bool Contains(const RowIdIndex& ids, const ITreeTableRow& row) {
    if (ids.IsEmpty())
        return false;
    const auto id = GetRowId(row);
    return id && ids.Contains(*id);
}

// Children before their parent, from the first to the last.
template <class Callback>
void WalkPostOrder(ITreeTableRow& row, const Callback& callback) {
    ForEachChildRow(row, [&](ITreeTableRow& child) {
        WalkPostOrder(child, callback);
        return true;
    });
    callback(row);
}

// Stops as soon as `wanted` rows are found, so that an id that stands on several rows selects the
// first.
void CollectRows(ITreeTableRow& row, const RowIdIndex& ids, std::size_t wanted,
                 std::vector<TreeRowPtr>& rows) {
    if (rows.size() >= wanted)
        return;
    ForEachChildRow(row, [&](ITreeTableRow& child) {
        CollectRows(child, ids, wanted, rows);
        return true;
    });
    if (Contains(ids, row))
        rows.emplace_back(&row);
}

} // namespace

ProductTreeEmbItemsStates::IdsByRoot& ProductTreeEmbItemsStates::GetExpanded(bool embodimentMode) {
    return embodimentMode ? m_expandedEmb : m_expanded;
}

void ProductTreeEmbItemsStates::Store(ITreeTableModel& tree, const UniqueMetaObjectKey& rootKey,
                                      bool embodimentMode) {
    if (rootKey.IsEmpty())
        return;
    m_selected.clear();
    m_current.reset();
    for (const TreeRowPtr& row : tree.GetSelectedRows()) {
        auto id = GetRowId(*row);
        if (!id)
            continue;
        if (row->IsCurrent())
            m_current = id;
        m_selected.push_back(std::move(id));
    }

    ITreeTableRow* root = tree.GetRootRow(0);
    if (!root)
        return;
    Ids& expanded = GetExpanded(embodimentMode)[rootKey];
    expanded.clear();
    // Collapsed parents pass on the state of the rows below them, too.
    WalkPostOrder(*root, [&](const ITreeTableRow& row) {
        if (!row.IsExpanded())
            return;
        if (auto id = GetRowId(row))
            expanded.push_back(std::move(id));
    });
}

void ProductTreeEmbItemsStates::Restore(ITreeTableModel& tree, const UniqueMetaObjectKey& rootKey,
                                        bool embodimentMode) {
    const auto made = GetExpanded(embodimentMode).try_emplace(rootKey);
    Ids& remembered = made.first->second;
    const bool isNew = made.second;
    ITreeTableRow* root = tree.GetRootRow(0);
    if (root) {
        UniqueMetaObjectKey keyOfRoot;
        if (const ProductTreeItemImpl* const item = isNew ? FindItemOfRow(*root) : nullptr) {
            remembered.push_back(item->GetId());
            keyOfRoot = item->GetDocumentKey();
        }
        const RowIdIndex expanded(remembered);
        // Only the root is expanded in a tree that was never seen, and it is known by its key: the
        // other rows need not say who they are.
        const auto isExpanded = [&](const ITreeTableRow& row) {
            return (!isNew || HasKey(row, keyOfRoot)) && Contains(expanded, row);
        };
        WalkPostOrder(*root, [&](ITreeTableRow& row) {
            const bool alwaysOpen = !row.IsCollapsible() && row.GetChildCount() > 0;
            row.SetExpanded(alwaysOpen || isExpanded(row));
        });
    }
    tree.ClearSelection();
    if (root)
        RestoreSelection(tree);
}

void ProductTreeEmbItemsStates::RestoreSelection(ITreeTableModel& tree) const {
    const RowIdIndex selected(m_selected);
    std::vector<TreeRowPtr> rows;
    CollectRows(*tree.GetRootRow(0), selected, m_selected.size(), rows);
    for (const TreeRowPtr& row : rows) {
        const bool makeCurrent = m_current && m_current->Equals(*GetRowId(*row));
        tree.SelectRow(row, makeCurrent, true);
    }
}

} // namespace productTree
