// The rows selected in the panel and the objects selected in the document are kept equal, both
// ways. A row can stand for many objects and an object under many rows, so that they meet by keys
// alone.

#include "columns/PropertyKeys.h"
#include "control/Bracket.h"
#include "control/GrProductTreeWrapper.h"
#include "control/ProductTreeCtrl.h"
#include "control/SyncGuard.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

#include <optional>
#include <unordered_map>

namespace productTree {

namespace {

using Places = std::unordered_map<UniqueMetaObjectKey, std::vector<std::size_t>>;

// Takes a key out as soon as its first row is met, and ends with the last one.
bool FindRows(ITreeTableRow& row, Places& wanted, std::vector<ITreeTableRow*>& found) {
    if (const ProductTreeItemImpl* const item = FindItemOfRow(row)) {
        const auto places = wanted.find(item->GetDocumentKey());
        if (places != wanted.end() && item->HasKey(places->first)) {
            for (const std::size_t place : places->second)
                found[place] = &row;
            wanted.erase(places);
        }
    }
    return !wanted.empty() && ForEachChildRow(row, [&](ITreeTableRow& child) {
        return FindRows(child, wanted, found);
    });
}

} // namespace

std::vector<ITreeTableRow*>
ProductTreeCtrl::FindRowsByKeys(const std::vector<UniqueMetaObjectKey>& keys) const {
    std::vector<ITreeTableRow*> found(keys.size(), nullptr);
    Places wanted;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (!keys[i].IsEmpty())
            wanted[keys[i]].push_back(i);
    }
    ITreeTableRow* const root = m_tree->GetRootRow(0);
    if (root && !wanted.empty())
        FindRows(*root, wanted, found);
    return found;
}

void ProductTreeCtrl::OnSelectionChanged() {
    if (m_rebuilding || !m_data || !m_tree)
        return;
    // A command that drops the selection is at work in a guard of its own.
    std::optional<SyncGuard> guard;
    if (!m_guarded)
        guard.emplace(*this, m_wrapper);
    const FlagScope inCommand(m_inCommand);
    UpdateCommandStates();
    std::vector<UniqueMetaObjectKey> keys;
    for (const TreeRowPtr& row : m_tree->GetSelectedRows()) {
        if (const ProductTreeItemImpl* const item = FindItemOfRow(*row))
            item->CollectSelectionKeys(keys);
    }
    m_data->SetSelectedKeys(keys);
    UpdateDocsList();
    UpdateGroupEdit();
}

void ProductTreeCtrl::SetSelectionByDoc() {
    if (m_inCommand || m_rebuilding || !m_data)
        return;
    if (!IsViewVisible()) {
        m_wrapper.GetTreeId()->SetNeedRefresh(true);
        return;
    }
    const FlagScope rebuilding(m_rebuilding);
    const std::vector<UniqueMetaObjectKey> keys = m_data->GetSelectedKeys();
    const std::vector<ITreeTableRow*> rows = FindRowsByKeys(keys);
    const auto idOf = [](const ITreeTableRow& row) {
        const ProductTreeItemImpl* const item = FindItemOfRow(row);
        return item ? item->GetId() : nullptr;
    };
    // The current row stays current only if it is still selected in the document.
    const ITreeTableRow* focus = nullptr;
    if (const TreeRowPtr current = m_tree->GetCurrentRow()) {
        const std::shared_ptr<ProductTreeItemId> id = idOf(*current);
        for (const ITreeTableRow* const row : rows) {
            if (id && row && idOf(*row)->Equals(*id)) {
                focus = row;
                break;
            }
        }
    }
    m_tree->ClearSelection();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!rows[i])
            continue;
        const bool makeCurrent = keys.size() < 2 || (focus ? rows[i] == focus : i == 0);
        m_tree->SelectRow(rows[i], makeCurrent, true);
    }
    UpdateCommandStates();
    UpdateDocsList();
    UpdateGroupEdit();
}

void ProductTreeCtrl::UpdateGroupEdit() {
    const Rows selected = m_tree->GetSelectedRows();
    std::size_t count = 0;
    std::unordered_map<std::wstring, bool> columns;
    if (selected.size() > 1) {
        for (const TreeRowPtr& row : selected) {
            const ProductTreeItemImpl* const item = FindItemOfRow(*row);
            if (!item || !item->IsGroupEditable())
                continue;
            ++count;
            item->ForEachCell([&](ProductTreeCellImpl& cell) {
                bool& isEditable =
                    columns.try_emplace(cell.GetColumnId().Str(), false).first->second;
                isEditable = isEditable || cell.IsEditable();
            });
        }
    }
    m_tree->SetGroupEditMode(count > 1);
    if (count < 2)
        return;
    // A count of a single embodiment has no head to be edited in, and name and designation have
    // their own.
    for (const ColumnInfo& column : GetCurrentColumns().GetEmbodimentColumns())
        columns.erase(column.GetId());
    columns.erase(keys::name);
    columns.erase(keys::marking);
    for (const auto& [columnId, isEditable] : columns)
        m_tree->AddGroupEditProperty(columnId, isEditable);
}

} // namespace productTree
