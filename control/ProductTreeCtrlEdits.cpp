// What the user does in rows, heads and columns, and what follows from it. Every edit runs in one
// frame: guarded against the echo of its own write, then applied.

#include "columns/PropertyKeys.h"
#include "columns/headers/DesignationHeader.h"
#include "control/Bracket.h"
#include "control/EditFrame.h"
#include "control/GrProductTreeWrapper.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemData.h"
#include "items/ProductTreeItemImpl.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>

namespace productTree {

namespace {

std::vector<std::wstring> WithoutFixedColumns(std::vector<std::wstring> columnIds) {
    std::erase_if(columnIds,
                  [](const std::wstring& id) { return id == keys::name || id == keys::marking; });
    return columnIds;
}

// A column that the user's order does not have comes first.
void SortColumns(std::list<ColumnInfo>& columns, const std::vector<std::wstring>& order) {
    std::unordered_map<std::wstring, std::size_t> places;
    for (std::size_t i = 0; i < order.size(); ++i)
        places.try_emplace(order[i], i);
    const auto placeOf = [&](const ColumnInfo& column) {
        const auto place = places.find(column.GetId());
        return place == places.end() ? 0 : place->second;
    };
    columns.sort([&](const ColumnInfo& a, const ColumnInfo& b) { return placeOf(a) < placeOf(b); });
}

// The entries of the view's list up to the first that belongs to the view itself.
std::vector<std::wstring> GetEntryIds(const ITreeTableModel& view) {
    std::vector<std::wstring> ids;
    for (int i = 0; i < view.GetColumnCount(); ++i) {
        std::wstring id = view.GetColumnId(i);
        if (id.empty())
            break;
        ids.push_back(std::move(id));
    }
    return ids;
}

// For as long as an edit works on it: whatever that leads to may give the row another item.
std::shared_ptr<ProductTreeItemImpl> HoldItem(const ProductTreeItemData& data) {
    return data.GetImpl();
}

TreeRowPtr RowOf(const std::shared_ptr<ProductTreeItemImpl>& item) {
    return item ? &item->GetRow() : nullptr;
}

} // namespace

template <class Work>
void ProductTreeCtrl::RunCellEdit(ProductTreeItemData& item, const std::wstring& columnId,
                                  const Work& work) {
    const std::shared_ptr<ProductTreeItemImpl> impl = HoldItem(item);
    RunEdit(
        [&] {
            TreeActionResult result;
            if (ProductTreeCellImpl* const cell = impl ? impl->FindCell(columnId) : nullptr) {
                result = work(*cell);
                result.item = impl->GetId();
            }
            return result;
        },
        RowOf(impl));
}

void ProductTreeCtrl::OnCellEdited(ProductTreeItemData& item, const std::wstring& columnId) {
    RunCellEdit(item, columnId, [](ProductTreeCellImpl& cell) { return cell.OnValueEdited(); });
}

void ProductTreeCtrl::OnMarkingEdited(ProductTreeItemData& item) {
    OnCellEdited(item, keys::marking);
}

void ProductTreeCtrl::OnNameEdited(ProductTreeItemData& item) {
    OnCellEdited(item, keys::name);
}

// Following a link may lead to another object of the document.
void ProductTreeCtrl::OnCellHypertextActivated(ProductTreeItemData& item,
                                               const std::wstring& columnId) {
    const FlagScope inCommand(m_inCommand);
    RunCellEdit(item, columnId,
                [](ProductTreeCellImpl& cell) { return cell.OnHypertextActivated(); });
}

void ProductTreeCtrl::OnCellSourceIconClicked(ProductTreeItemData& item,
                                              const std::wstring& columnId) {
    RunCellEdit(item, columnId,
                [](ProductTreeCellImpl& cell) { return cell.OnSourceIconClicked(); });
}

void ProductTreeCtrl::OnItemPopupCommand(ProductTreeItemData& item, const std::wstring& columnId,
                                         int command) {
    const std::shared_ptr<ProductTreeItemImpl> impl = HoldItem(item);
    RunEdit([&] { return impl ? impl->OnCellPopupCommand(columnId, command) : TreeActionResult(); },
            RowOf(impl));
}

void ProductTreeCtrl::OnDesignationCodeCommand() {
    if (m_designationHeader)
        RunEdit([&] { return m_designationHeader->EditDocCode(); });
}

void ProductTreeCtrl::OnEditDocCode(ProductTreeItemData& item) {
    const std::shared_ptr<ProductTreeItemImpl> impl = HoldItem(item);
    bool isChanged = false;
    {
        const SyncGuard guard(*this, m_wrapper);
        isChanged = impl && impl->EditDocCode();
    }
    if (isChanged)
        Synchronize();
}

void ProductTreeCtrl::OnAggrIntoProductClicked(ProductTreeItemData& item) {
    const std::shared_ptr<ProductTreeItemImpl> impl = HoldItem(item);
    if (AggrIntoProductAttribute* const attribute = impl ? impl->GetAggrAttribute() : nullptr) {
        RunEdit([&] { return attribute->Toggle(); });
        UpdateDocsList();
    }
}

void ProductTreeCtrl::OnRegWithDescClicked(ProductTreeItemData& item) {
    const std::shared_ptr<ProductTreeItemImpl> impl = HoldItem(item);
    if (RegWithDescAttribute* const attribute = impl ? impl->GetRegAttribute() : nullptr)
        RunEdit([&] { return attribute->Toggle(); });
}

void ProductTreeCtrl::OnHeaderEdited(const std::wstring& columnId) {
    RunEdit([&] {
        ProductTreeHeaderImpl* const header = FindHeader(columnId);
        return header ? header->OnValueEdited() : TreeActionResult();
    });
}

void ProductTreeCtrl::OnHeaderClicked(const std::wstring& columnId) {
    if (ProductTreeHeaderImpl* const header = FindHeader(columnId))
        RunEdit([&] { return header->OnClicked(); });
}

void ProductTreeCtrl::OnHeaderPopupCommand(const std::wstring& columnId, int command) {
    if (ProductTreeHeaderImpl* const header = FindHeader(columnId))
        RunEdit([&] { return header->OnPopupCommand(command); });
}

void ProductTreeCtrl::ApplyResult(const TreeActionResult& result, const TreeRowPtr& touched) {
    bool isBuilt = result.action == TreeActionResult::Synchronise;
    if (result.action == TreeActionResult::ValuesChanged)
        isBuilt = m_data->IsRebuildRequired();
    if (isBuilt)
        Synchronize();
    else if (result.action == TreeActionResult::ValuesChanged ||
             result.action == TreeActionResult::Refresh)
        RefreshAfterEdit(touched.get());

    ITreeTableRow* const root = m_tree->GetRootRow(0);
    if (!result.selectKey.IsEmpty()) {
        const TreeRowPtr row = FindRowByKey(root, result.selectKey);
        if (!row)
            return;
        row->Select();
        if (result.selectFlag)
            row->BeginEdit();
        return;
    }
    // A refresh has left the selection as it was.
    if (isBuilt && result.item && root && SelectRowById(*result.item, *root)) {
        UpdateDocsList();
        UpdateCommandStates();
    }
}

std::shared_ptr<ProductTreeItemImpl> ProductTreeCtrl::HoldItemOfRow(const ITreeTableRow& row) {
    const ProductTreeItemData* const data = row.GetData();
    return data ? HoldItem(*data) : nullptr;
}

ITreeTableRow* ProductTreeCtrl::FindRowByKey(ITreeTableRow* row,
                                             const UniqueMetaObjectKey& key) const {
    if (!row || key.IsEmpty())
        return nullptr;
    const ProductTreeItemImpl* const item = FindItemOfRow(*row);
    if (item && item->HasKey(key))
        return row;
    ITreeTableRow* found = nullptr;
    ForEachChildRow(*row, [&](ITreeTableRow& child) {
        found = FindRowByKey(&child, key);
        return !found;
    });
    return found;
}

bool ProductTreeCtrl::SelectRowById(const ProductTreeItemId& id, ITreeTableRow& row) const {
    const ProductTreeItemImpl* const item = FindItemOfRow(row);
    if (item && item->GetId()->Equals(id)) {
        row.Select();
        return true;
    }
    return !ForEachChildRow(row, [&](ITreeTableRow& child) { return !SelectRowById(id, child); });
}

ProductTreeHeaderImpl* ProductTreeCtrl::FindHeader(const std::wstring& columnId) const {
    for (ProductTreeHeaderImpl* const fixed :
         {m_nameHeader.get(), static_cast<ProductTreeHeaderImpl*>(m_designationHeader.get())}) {
        if (fixed && fixed->IsColumn(columnId))
            return fixed;
    }
    const auto found = std::ranges::find_if(
        m_headers, [&](const auto& header) { return header->IsColumn(columnId); });
    return found == m_headers.end() ? nullptr : found->get();
}

void ProductTreeCtrl::OnColumnsChanged() {
    DocumentColumnsInfo& columns = GetCurrentColumns();
    std::vector<std::wstring> order = m_tree->GetColumnIds();
    if (m_data->IsEmbodimentMode())
        ReplaceEmbodimentColumns(order);
    SortColumns(columns.GetColumns(), order);

    std::vector<std::wstring> ids;
    for (const ColumnInfo& column : columns.GetColumns())
        ids.push_back(column.GetId());
    m_data->SetColumnOrder(WithoutFixedColumns(std::move(ids)));
    Synchronize();
}

// The product knows one count column, in whose place they all stand. Torn apart by the user they
// are no such place.
void ProductTreeCtrl::ReplaceEmbodimentColumns(std::vector<std::wstring>& columnIds) {
    std::vector<std::wstring> embodimentIds;
    for (const ColumnInfo& column : GetCurrentColumns().GetEmbodimentColumns())
        embodimentIds.push_back(column.GetId());
    if (embodimentIds.empty())
        return;
    const auto run =
        std::search(columnIds.begin(), columnIds.end(), embodimentIds.begin(), embodimentIds.end());
    if (run == columnIds.end())
        return;
    *run = keys::count;
    columnIds.erase(run + 1, run + static_cast<std::ptrdiff_t>(embodimentIds.size()));
}

void ProductTreeCtrl::SetColumnsVisibility(const std::vector<ColumnVisibility>& columns) {
    for (const auto& [columnId, visible] : columns) {
        const SyncGuard guard(*this, m_wrapper);
        m_data->SetColumnVisible(columnId, visible != 0);
        m_data->SetColumnOrder(WithoutFixedColumns(GetEntryIds(*m_tree)));
    }
    Synchronize();
}

} // namespace productTree
