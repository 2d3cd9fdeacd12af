#include "items/InfObjectItemImpl.h"

#include "host/data/IfProductTreeData.h"
#include "items/CellTable.h"
#include "items/ItemIcons.h"

#include <utility>

namespace productTree {

InfObjectItemImpl::InfObjectItemImpl(TreeRowPtr row, IfProductTreeData* data,
                                     UniqueMetaObjectKey key)
    : ProductTreeItemImpl(std::move(row), data), m_key(std::move(key)) {}

bool InfObjectItemImpl::IsGroup() const {
    return false;
}

std::shared_ptr<ProductTreeItemId> InfObjectItemImpl::GetId() const {
    return std::make_shared<ItemIdByKey>(m_key);
}

void InfObjectItemImpl::SplitByHypertext(std::vector<UniqueMetaObjectKey>& with,
                                         std::vector<UniqueMetaObjectKey>& without,
                                         const std::wstring& columnId) const {
    if (ProductTreeCellImpl* cell = FindCell(columnId))
        (cell->HasHypertext() ? with : without).push_back(m_key);
}

bool InfObjectItemImpl::UpdateActual() {
    m_actual = m_data->IsActual(m_key);
    return m_actual;
}

std::set<int> InfObjectItemImpl::GetLockedMarkingParts() const {
    return m_data->GetLockedMarkingParts(m_key);
}

unsigned InfObjectItemImpl::GetCount(int) const {
    return m_data->IsExcludedFromCount(m_key) ? 0 : CountByAggregation();
}

unsigned InfObjectItemImpl::CountByAggregation() const {
    if (!m_data->IsAggrIntoProductShown())
        return 1;
    return m_data->GetAggrIntoProduct(m_key).value_or(true) ? 1 : 0;
}

void InfObjectItemImpl::UpdateIcon() {
    m_row->SetIcon(GetObjectIcon(m_data->GetIconType(m_key)), {});
}

std::shared_ptr<ProductTreeCellImpl> InfObjectItemImpl::CreateCell(const ColumnInfo& column) {
    return CreateObjectCell(column, {GetArena(), m_data, m_row, m_key});
}

} // namespace productTree
