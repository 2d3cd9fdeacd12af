#include "items/InfObjectItemImpl.h"

#include "cells/PlainCells.h"
#include "columns/PropertyKeys.h"
#include "host/TeDocCodeMaker.h"
#include "host/data/IfProductTreeData.h"
#include "items/ColumnTable.h"
#include "items/DeleteQuestion.h"
#include "items/ItemIcons.h"

#include <utility>

namespace productTree {

namespace {

const SharedText& GetPositionId() {
    static const SharedText id = keys::position;
    return id;
}

} // namespace

InfObjectItemImpl::InfObjectItemImpl(TreeRowPtr row, IfProductTreeData* data,
                                     UniqueMetaObjectKey key)
    : ProductTreeItemImpl(std::move(row), data), m_key(std::move(key)),
      m_ownAggrAttribute(m_row, data, m_key), m_ownRegAttribute(m_row, data, m_key) {
    m_aggrAttribute = &m_ownAggrAttribute;
    m_regAttribute = &m_ownRegAttribute;
}

bool InfObjectItemImpl::IsGroupEditable() const {
    return true;
}

bool InfObjectItemImpl::IsGroup() const {
    return false;
}

std::shared_ptr<ProductTreeItemId> InfObjectItemImpl::GetId() const {
    return std::make_shared<ItemIdByKey>(m_key);
}

bool InfObjectItemImpl::CanHighlight() const {
    return m_data->CanHighlight(m_key);
}

bool InfObjectItemImpl::CanDelete() const {
    return m_data->CanDelete(m_key);
}

bool InfObjectItemImpl::Delete() {
    std::set<Key> keys;
    CollectKeysToDelete(keys);
    SharedText text;
    if (const std::optional<SharedText> name = m_data->GetDeleteInfo(keys).name)
        text = FormatResourceText("IDS_PRODUCTTREE_DELETE_CONFIRMATION", {*name});
    return AskAndDelete(*m_data, keys, "IDS_PRODUCTTREE_DEL_OBJECT", text);
}

void InfObjectItemImpl::CollectKeysToDelete(std::set<Key>& keys) const {
    if (CanDelete())
        keys.insert(m_key);
}

void InfObjectItemImpl::CollectSelectionKeys(std::vector<Key>& keys) const {
    keys.push_back(m_key);
}

void InfObjectItemImpl::SplitByHypertext(std::vector<Key>& with, std::vector<Key>& without,
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

bool InfObjectItemImpl::CanSetPosition() const {
    return m_data->CanSetPosition(m_key);
}

// The number moves on for every object that can be numbered, whether its column is shown or not.
unsigned InfObjectItemImpl::SetPosition(unsigned next, ProductInfObjChangesResult& changes) {
    if (CanSetPosition()) {
        const PropValue position(SimplePropVal(static_cast<int>(next)));
        MergeChanges(changes, MakeCellChanges(GetPositionId(), position, std::nullopt));
        return next + 1;
    }
    return m_data->KeepsOwnPosition(m_key) ? next + 1 : next;
}

bool InfObjectItemImpl::CanClearPosition() const {
    return m_data->CanClearPosition(m_key);
}

void InfObjectItemImpl::ClearPosition(ProductInfObjChangesResult& changes) {
    if (CanClearPosition())
        MergeChanges(changes, MakeCellChanges(GetPositionId(), PropValue(), std::nullopt));
}

// Of what the user has left only the code is taken: the dialog shows the whole designation for him
// to see what he changes.
bool InfObjectItemImpl::EditDocCode() {
    VariantMarking marking = GetMarkingFromRow();
    const SharedText made = marking.Make(VariantMarkingData::MakeAll, true, false);
    SharedText text = made;
    TeDocCodeMaker::SetDocCode(text, true, false, nullptr);
    // A cancelled dialog changes nothing, however the host takes its text apart.
    if (text == made)
        return false;
    VariantMarking edited;
    edited.Parse(text);
    marking.SetCode(edited.GetCode());

    static const SharedText markingId = keys::marking;
    ProductInfObjChangesResult changes = m_data->MakeValueChanges(
        {m_key, UniqueMetaObjectKey::null, markingId, std::nullopt}, marking.GetPropValue());
    m_data->CommitChanges(changes);
    return changes.IsExistsChanges();
}

unsigned InfObjectItemImpl::GetCount(int) const {
    return m_data->IsExcludedFromCount(m_key) ? 0 : CountByAggregation();
}

unsigned InfObjectItemImpl::CountByAggregation() const {
    if (!m_data->IsAggrIntoProductShown())
        return 1;
    return m_data->GetAggrIntoProduct(m_key).value_or(true) ? 1 : 0;
}

void InfObjectItemImpl::AppendKey(std::vector<Key>& keys) const {
    keys.push_back(m_key);
}

bool InfObjectItemImpl::HasKey(const Key& key) const {
    return m_key == key;
}

UniqueMetaObjectKey InfObjectItemImpl::GetDocumentKey() const {
    return m_key;
}

UniqueMetaObjectKey InfObjectItemImpl::GetObjectKey() const {
    return m_key;
}

bool InfObjectItemImpl::IsSectionNameLinked() const {
    return m_data->IsSectionNameLinked(m_key);
}

std::vector<std::pair<UniqueMetaObjectKey, PropValue>>
InfObjectItemImpl::GetValuesToTransmit(const std::wstring& columnId) const {
    if (!CanTransmitToSource(columnId))
        return {};
    return {{m_key, FindCell(columnId)->GetShownPropValue()}};
}

bool InfObjectItemImpl::CanTransmitToSource(const std::wstring& columnId) const {
    ProductTreeCellImpl* const cell = FindCell(columnId);
    return cell && cell->CanTransmitToSource();
}

void InfObjectItemImpl::UpdateIcon() {
    m_row->SetIcon(GetObjectIcon(m_data->GetIconType(m_key)), {});
}

std::shared_ptr<ProductTreeCellImpl> InfObjectItemImpl::CreateCell(const ColumnInfo& column) {
    return CreateObjectCell(column, {m_cells, m_data, m_row, m_key});
}

RootItemImpl::RootItemImpl(TreeRowPtr row, IfProductTreeData* data, UniqueMetaObjectKey key)
    : InfObjectItemImpl(std::move(row), data, std::move(key)) {
    m_aggrAttribute = nullptr;
    m_regAttribute = nullptr;
}

bool RootItemImpl::CanHighlight() const {
    return false;
}

bool RootItemImpl::CanDelete() const {
    return false;
}

bool RootItemImpl::Delete() {
    return false;
}

void RootItemImpl::CollectKeysToDelete(std::set<Key>&) const {}

void RootItemImpl::CollectSelectionKeys(std::vector<Key>&) const {}

bool RootItemImpl::CanSetPosition() const {
    return m_data->CanStartPositions() && CanSetChildPositions();
}

unsigned RootItemImpl::SetPosition(unsigned next, ProductInfObjChangesResult& changes) {
    return SetChildPositions(next, changes);
}

bool RootItemImpl::CanClearPosition() const {
    return CanClearChildPositions();
}

void RootItemImpl::ClearPosition(ProductInfObjChangesResult& changes) {
    ClearChildPositions(changes);
}

UniqueMetaObjectKey RootItemImpl::GetObjectKey() const {
    return UniqueMetaObjectKey::null;
}

std::shared_ptr<ProductTreeCellImpl> RootItemImpl::CreateCell(const ColumnInfo& column) {
    if (column.GetId() == keys::count ||
        !ColumnInfo::ConvertGroupCountFromId(column.GetId()).empty())
        return CellArena::Make<EmptyDisabledCellImpl>(m_cells, m_data, m_row, column, m_key);
    return InfObjectItemImpl::CreateCell(column);
}

} // namespace productTree
