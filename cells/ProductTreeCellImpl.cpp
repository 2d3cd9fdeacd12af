#include "cells/ProductTreeCellImpl.h"

#include "cells/CellCommands.h"
#include "cells/CellValues.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemData.h"
#include "items/ProductTreeItemImpl.h"
#include "items/RowIdIndex.h"

#include <utility>

namespace productTree {

namespace {

// What a click on the icon asks for. Anything but the three icons, so also none at all, unties.
bool IsBySourceWanted(const SharedText& icon) {
    return icon == sourceIcons::notBySource || icon == sourceIcons::mixed;
}

} // namespace

void MergeChanges(ProductInfObjChangesResult& all, const ProductInfObjChangesResult& changes) {
    all += changes;
    all.changedProperties.insert(changes.changedProperties.begin(),
                                 changes.changedProperties.end());
}

ProductTreeCellImpl::ProductTreeCellImpl(IfProductTreeData* data, TreeRowPtr row,
                                         const ColumnInfo& column, const UniqueMetaObjectKey& key)
    : m_data(data), m_row(std::move(row)), m_column(column), m_key(key) {}

ProductTreeCellImpl::~ProductTreeCellImpl() = default;

bool ProductTreeCellImpl::AskEditable() {
    m_editable = !m_key.IsEmpty() && !m_data->IsReadOnly(MakeRef());
    return *m_editable;
}

bool ProductTreeCellImpl::AskHypertext() {
    m_hasHypertext = m_key != UniqueMetaObjectKey::null && m_data->IsHypertext(MakeRef());
    return *m_hasHypertext;
}

bool ProductTreeCellImpl::CanInsertHypertext() {
    return m_data->CanInsertHypertext(MakeRef(), m_column.GetType());
}

bool ProductTreeCellImpl::CanInsertExtendedReference() {
    return false;
}

bool ProductTreeCellImpl::CanEditHypertext() {
    return m_data->CanEditHypertext(MakeRef());
}

bool ProductTreeCellImpl::CanDestroyHypertext() {
    return m_data->CanDestroyHypertext(MakeRef());
}

bool ProductTreeCellImpl::IsHypertextActive() {
    if (!m_hypertextActive)
        m_hypertextActive =
            m_key != UniqueMetaObjectKey::null && m_data->IsHypertextActive(MakeRef());
    return *m_hypertextActive;
}

ProductInfObjChangesResult ProductTreeCellImpl::SetBySource(bool bySource, ChangedRows& rows) {
    rows.Add(GetItem().GetId());
    const PropertyRef ref = MakeRef();
    if (!IsEditable() || !m_data->GetBySource(ref))
        return {};
    return m_data->MakeBySourceChanges(ref, bySource);
}

TreeActionResult ProductTreeCellImpl::OnHypertextActivated() {
    TreeActionResult result;
    ExecLinkCommand(*m_data, commands::editHypertext, MakeLinkTargets(), result);
    return result;
}

TreeActionResult ProductTreeCellImpl::OnPopupCommand(int) {
    return {};
}

bool ProductTreeCellImpl::ExecCommand(int command, TreeActionResult& out) {
    out.action = TreeActionResult::Nothing;
    if (IsLinkCommand(command)) {
        ExecLinkCommand(*m_data, command, MakeLinkTargets(), out);
        return true;
    }
    switch (command) {
    case commands::convertToBillet:
        m_data->ConvertToBillet(m_key);
        out.action = TreeActionResult::Synchronise;
        return true;
    case commands::itemProperties:
        m_data->ShowItemProperties(m_key);
        out.action = TreeActionResult::ValuesChanged;
        return true;
    case commands::gotoFeature:
        m_data->GotoFeature(m_key);
        out.action = TreeActionResult::ValuesChanged;
        return true;
    case commands::addBillet:
        out.selectKey = m_data->AddBillet(m_key);
        out.selectFlag = true;
        out.action = TreeActionResult::Synchronise;
        return true;
    case commands::transmitToSource:
        TransmitToSource(out);
        return true;
    case commands::editComponentSource:
    case commands::editFragmentSource:
        m_data->EditSource(m_key);
        out.action = TreeActionResult::ValuesChanged;
        return true;
    default:
        return false;
    }
}

// The wish is read from what the row shows: that is what the user has clicked.
TreeActionResult ProductTreeCellImpl::OnSourceIconClicked() {
    const bool bySource = IsBySourceWanted(m_row->GetCellSourceIcon(GetColumnId()));
    ChangedRows rows;
    ProductInfObjChangesResult changes = SetBySource(bySource, rows);
    return FinishEdit(std::move(changes), TreeActionResult::Synchronise, [] {});
}

std::set<int> ProductTreeCellImpl::GetAvailableCommands() {
    std::set<int> available;
    if (!IsEditable())
        return available;
    if (CanTransmitToSource())
        available.insert(commands::transmitToSource);
    if (CanInsertHypertext())
        available.insert(commands::insertHypertext);
    if (CanEditHypertext())
        available.insert(commands::editHypertext);
    if (CanDestroyHypertext())
        available.insert(commands::destroyHypertext);
    return available;
}

bool ProductTreeCellImpl::CanTransmitToSource() {
    return m_data->CanTransmitToSource(m_key, m_column.GetId());
}

ProductTreeCellImpl::Source ProductTreeCellImpl::ToSource(std::optional<bool> bySource) {
    if (!bySource)
        return Source::None;
    return *bySource ? Source::BySource : Source::NotBySource;
}

SharedText ProductTreeCellImpl::GetSourceIcon() {
    switch (m_source) {
    case Source::Unread:
        return FindSourceIcon(m_data->GetBySource(MakeRef()));
    case Source::None:
        break;
    case Source::BySource:
        return sourceIcons::bySource;
    case Source::NotBySource:
        return sourceIcons::notBySource;
    }
    return sourceIcons::none;
}

int ProductTreeCellImpl::GetLinkStyle() {
    return IsHypertextActive() ? LinkStyleLive : LinkStyleDead;
}

PropertyRef ProductTreeCellImpl::MakeRef() const {
    return {m_key, UniqueMetaObjectKey::null, m_column.GetSharedId(), std::nullopt};
}

// What is as it was is not written: the memory of a hundred thousand rows stays clean.
PropertyReading ProductTreeCellImpl::Read() {
    PropertyReading reading = m_data->ReadProperty(m_key, GetColumnId());
    const bool editable = !m_key.IsEmpty() && !reading.isReadOnly;
    const bool hypertext = m_key != UniqueMetaObjectKey::null && reading.isHypertext;
    if (m_editable != editable)
        m_editable = editable;
    if (m_hasHypertext != hypertext)
        m_hasHypertext = hypertext;
    if (m_hypertextActive)
        m_hypertextActive.reset();
    if (const Source source = ToSource(reading.bySource); m_source != source)
        m_source = source;
    return reading;
}

void ProductTreeCellImpl::ResetCaches() {
    m_editable.reset();
    m_hasHypertext.reset();
    m_hypertextActive.reset();
    m_source = Source::Unread;
}

ProductTreeItemImpl& ProductTreeCellImpl::GetItem() const {
    return *m_row->GetData()->GetImpl();
}

bool ProductTreeCellImpl::IsInGroupRow() const {
    return GetItem().IsParentGroup();
}

void ProductTreeCellImpl::ShowLink(const SharedText& shown, const SharedText& icon) {
    m_row->SetLinkCell(GetColumnId(), shown, false, {}, IsEditable(), false, false, icon,
                       GetLinkStyle());
}

ProductInfObjChangesResult ProductTreeCellImpl::MakeEditableChanges(const PropValue& value) {
    if (!IsEditable())
        return {};
    return m_data->MakeValueChanges(MakeRef(), value);
}

// An emptied editor is no wish to take the value away: integers have no such state.
ProductInfObjChangesResult ProductTreeCellImpl::MakeChangesFromInt() {
    const std::optional<int> value = m_row->GetIntValue(GetColumnId());
    if (!value)
        return {};
    return MakeChanges(PropValue(SimplePropVal(m_column.UnapplyUnitCoefficient(*value))),
                       std::nullopt);
}

ProductInfObjChangesResult ProductTreeCellImpl::MakeChangesFromDouble() {
    PropValue stored;
    if (const std::optional<double> value = m_row->GetDoubleValue(GetColumnId()))
        stored = PropValue(SimplePropVal(m_column.UnapplyUnitCoefficient(*value)));
    return MakeChanges(stored, std::nullopt);
}

// The list of stored values has the same places as the list that is shown.
ProductInfObjChangesResult ProductTreeCellImpl::MakeChangesFromList() {
    const int index = m_row->GetListIndex(GetColumnId());
    // No place in the list takes a value away that is in it. One that is not in the list has no
    // place either, and stays.
    if (index < 0 && !GetShownValue().IsEmpty())
        return MakeChanges(PropValue(), std::nullopt);
    const SimplePropVal* const value = GetFromList(m_column.GetStoredList(), index);
    return value ? MakeChanges(PropValue(*value), std::nullopt) : ProductInfObjChangesResult();
}

void ProductTreeCellImpl::ShowFromList(int index, const SharedText& icon) {
    const std::list<SimplePropVal>& list = m_column.GetShownList();
    m_row->SetListCell(GetColumnId(), list, index, IsEditable(), icon);
    const SimplePropVal* const shown = GetFromList(list, index);
    SetShownValue(shown ? *shown : SimplePropVal());
}

LinkTargets ProductTreeCellImpl::MakeLinkTargets() const {
    return {{MakeRef()}, {MakeRef()}, m_key, m_key, !m_key.IsEmpty()};
}

// What is sent is what the user sees, even where the product holds another value by now.
void ProductTreeCellImpl::TransmitToSource(TreeActionResult& out) {
    m_data->TransmitToSource(m_column.GetId(), {{m_key, GetShownPropValue()}});
    out.action = TreeActionResult::Synchronise;
}

bool ProductTreeCellImpl::Commit(ProductInfObjChangesResult& changes) {
    m_data->CommitChanges(changes);
    return changes.IsExistsChanges();
}

} // namespace productTree
