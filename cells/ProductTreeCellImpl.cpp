#include "cells/ProductTreeCellImpl.h"

#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemData.h"
#include "items/ProductTreeItemImpl.h"

#include <utility>

namespace productTree {

ProductTreeCellImpl::ProductTreeCellImpl(IfProductTreeData* data, TreeRowPtr row,
                                         const ColumnInfo& column, const UniqueMetaObjectKey& key)
    : m_data(data), m_row(std::move(row)), m_column(column), m_key(key) {}

ProductTreeCellImpl::~ProductTreeCellImpl() = default;

bool ProductTreeCellImpl::IsEditable() {
    if (!m_editable)
        m_editable = !m_key.IsEmpty() && !m_data->IsReadOnly(MakeRef());
    return *m_editable;
}

bool ProductTreeCellImpl::HasHypertext() {
    if (!m_hasHypertext)
        m_hasHypertext = m_key != UniqueMetaObjectKey::null && m_data->IsHypertext(MakeRef());
    return *m_hasHypertext;
}

bool ProductTreeCellImpl::IsHypertextActive() {
    if (!m_hypertextActive)
        m_hypertextActive =
            m_key != UniqueMetaObjectKey::null && m_data->IsHypertextActive(MakeRef());
    return *m_hypertextActive;
}

std::wstring ProductTreeCellImpl::GetSourceIcon() {
    const std::optional<bool> bySource = m_data->GetBySource(MakeRef());
    if (!bySource)
        return {};
    return *bySource ? sourceIcons::bySource : sourceIcons::notBySource;
}

int ProductTreeCellImpl::GetLinkStyle() {
    return IsHypertextActive() ? 2 : 0;
}

PropertyRef ProductTreeCellImpl::MakeRef() const {
    return {m_key, UniqueMetaObjectKey::null, m_column.GetSharedId(), std::nullopt};
}

void ProductTreeCellImpl::SetShownValue(const SimplePropVal& value) {
    m_value.SetValue(value.GetValue());
    m_propValue = PropValue(value);
}

void ProductTreeCellImpl::ResetCaches() {
    m_editable.reset();
    m_hasHypertext.reset();
    m_hypertextActive.reset();
}

ProductTreeItemImpl& ProductTreeCellImpl::GetItem() const {
    return *m_row->GetData()->GetImpl();
}

} // namespace productTree
