#include "columns/headers/ProductTreeHeaderImpl.h"

#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"
#include "items/RowIdIndex.h"

#include <utility>

namespace productTree {

namespace {

std::vector<std::shared_ptr<ProductTreeItemId>> GetIds(const std::vector<TreeRowPtr>& rows) {
    std::vector<std::shared_ptr<ProductTreeItemId>> ids;
    ids.reserve(rows.size());
    for (const TreeRowPtr& row : rows) {
        if (const ProductTreeItemImpl* const item = FindItemOfRow(*row))
            ids.push_back(item->GetId());
    }
    return ids;
}

} // namespace

ProductTreeHeaderImpl::ProductTreeHeaderImpl(const ColumnInfo& column, IfProductTreeData* data,
                                             boost::intrusive_ptr<ITreeTableModel> model)
    : m_column(column), m_data(data), m_model(std::move(model)) {}

ProductTreeHeaderImpl::~ProductTreeHeaderImpl() = default;

TreeActionResult ProductTreeHeaderImpl::OnClicked() {
    return {};
}

TreeActionResult ProductTreeHeaderImpl::OnPopupCommand(int) {
    return {};
}

void ProductTreeHeaderImpl::ForEachRowToApply(const RowCallback& callback) const {
    const std::vector<TreeRowPtr> rows = m_model->GetSelectedRows();
    const auto ids = GetIds(rows);
    const RowIdIndex selected(ids);
    for (const TreeRowPtr& row : rows) {
        ProductTreeItemImpl* const item = FindItemOfRow(*row);
        ProductTreeCellImpl* const cell = item ? item->FindCell(m_column.GetId()) : nullptr;
        if (cell && IsRowToApply(*row, selected) && !callback(*item, *cell))
            return;
    }
}

TreeActionResult ProductTreeHeaderImpl::ApplyValueToSelection(const PropValue& value) {
    TreeActionResult result;
    ProductInfObjChangesResult changes;
    ForEachRowToApply([&](const ProductTreeItemImpl& item, ProductTreeCellImpl& cell) {
        result.item = item.GetId();
        if (cell.IsEditable())
            MergeChanges(changes, cell.MakeChanges(value, std::nullopt));
        return true;
    });
    m_data->CommitChanges(changes);
    if (changes.IsExistsChanges())
        result.action = TreeActionResult::ValuesChanged;
    return result;
}

bool ProductTreeHeaderImpl::IsRowToApply(const ITreeTableRow& row, const RowIdIndex& selected) {
    const ITreeTableRow* const parent = row.GetParent();
    const ProductTreeItemImpl* const item = parent ? FindItemOfRow(*parent) : nullptr;
    return !item || !item->IsGroup() || !selected.Contains(*item->GetId());
}

} // namespace productTree
