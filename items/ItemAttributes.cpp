#include "items/ItemAttributes.h"

#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"
#include "items/RowIdIndex.h"

#include <bit>

namespace productTree {

namespace {

int ToState(std::optional<bool> value, bool isReadOnly) {
    if (!value)
        return AttributeStateNone;
    if (isReadOnly)
        return *value ? AttributeStateOnReadOnly : AttributeStateOffReadOnly;
    return *value ? AttributeStateOn : AttributeStateOff;
}

} // namespace

template <class Attribute>
TreeActionResult ItemAttribute<Attribute>::Toggle() {
    ChangedRows rows;
    ProductInfObjChangesResult changes =
        MakeChanges(Attribute::GetState(*m_row) != AttributeStateOn, rows);
    TreeActionResult result;
    if (changes.IsExistsChanges()) {
        m_data->CommitChanges(changes);
        result.action = TreeActionResult::Synchronise;
    }
    return result;
}

template <class Attribute>
bool ItemAttribute<Attribute>::CanGoTo(bool value) const {
    return Attribute::GetState(*m_row) == (value ? AttributeStateOff : AttributeStateOn);
}

template <class Attribute>
ProductTreeItemImpl& ItemAttribute<Attribute>::GetItem() const {
    return *FindItemOfRow(*m_row);
}

template class ItemAttribute<AggrIntoProductAttribute>;
template class ItemAttribute<RegWithDescAttribute>;

int AggrIntoProductAttribute::GetState(const ITreeTableRow& row) {
    return row.GetAggrIntoProductState();
}

void AggrIntoProductAttribute::SetState(ITreeTableRow& row, int state) {
    row.SetAggrIntoProductState(state);
}

AggrIntoProductAttribute* AggrIntoProductAttribute::FindOf(const ProductTreeItemImpl& item) {
    return item.GetAggrAttribute();
}

int RegWithDescAttribute::GetState(const ITreeTableRow& row) {
    return row.GetRegWithDescState();
}

void RegWithDescAttribute::SetState(ITreeTableRow& row, int state) {
    row.SetRegWithDescState(state);
}

RegWithDescAttribute* RegWithDescAttribute::FindOf(const ProductTreeItemImpl& item) {
    return item.GetRegAttribute();
}

ProductInfObjChangesResult InfObjAggrIntoProductAttributeImpl::MakeChanges(bool value,
                                                                           ChangedRows& rows) {
    rows.Add(GetItem().GetId());
    return m_data->IsAggrIntoProductReadOnly(m_key)
               ? ProductInfObjChangesResult()
               : m_data->MakeAggrIntoProductChanges(m_key, value);
}

void InfObjAggrIntoProductAttributeImpl::Update() {
    const std::optional<bool> value = m_data->GetAggrIntoProduct(m_key);
    SetState(*m_row, ToState(value, value && m_data->IsAggrIntoProductReadOnly(m_key)));
}

ProductInfObjChangesResult InfObjRegWithDescAttributeImpl::MakeChanges(bool value,
                                                                       ChangedRows& rows) {
    const ProductTreeItemImpl& item = GetItem();
    rows.Add(item.GetId());
    return m_data->IsRegWithDescReadOnly(m_key)
               ? ProductInfObjChangesResult()
               : m_data->MakeRegWithDescChanges(m_key, item.IsParentGroup(), value);
}

void InfObjRegWithDescAttributeImpl::Update() {
    const std::optional<bool> value = m_data->GetRegWithDesc(m_key);
    SetState(*m_row, ToState(value, value && m_data->IsRegWithDescReadOnly(m_key)));
}

// A selection may hold a row and one above it: what was changed already is passed over.
template <class Attribute>
ProductInfObjChangesResult SubTreeAttribute<Attribute>::MakeChanges(bool value, ChangedRows& rows) {
    const ProductTreeItemImpl& item = this->GetItem();
    rows.Add(item.GetId());
    ProductInfObjChangesResult changes;
    item.ForEachChildItem([&](const ProductTreeItemImpl& child) {
        Attribute* const attribute = Attribute::FindOf(child);
        if (attribute && !rows.Contains(*child.GetId()))
            MergeChanges(changes, attribute->MakeChanges(value, rows));
        return true;
    });
    return changes;
}

template <class Attribute>
void SubTreeAttribute<Attribute>::Update() {
    const unsigned states = Attribute::GetChildStates(m_childRows);
    int state = AttributeStateNone;
    if (std::has_single_bit(states))
        state = std::countr_zero(states);
    else if (states & (1U << AttributeStateOn))
        state = AttributeStateOn;
    else if (states & (1U << AttributeStateOff))
        state = AttributeStateOff;
    Attribute::SetState(*this->m_row, state);
}

template class SubTreeAttribute<AggrIntoProductAttribute>;
template class SubTreeAttribute<RegWithDescAttribute>;

ProductInfObjChangesResult GroupRegWithDescAttributeImpl::MakeChanges(bool value,
                                                                      ChangedRows& rows) {
    rows.Add(GetItem().GetId());
    return m_data->MakeRegWithDescChanges(m_key, std::nullopt, value);
}

} // namespace productTree
