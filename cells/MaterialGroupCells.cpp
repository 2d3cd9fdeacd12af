#include "cells/MaterialGroupCells.h"

#include "cells/CellMenus.h"
#include "cells/MaterialCells.h"
#include "host/FormatLabelUtils.h"
#include "items/ProductTreeItemImpl.h"
#include "resources/ProductTreeResources.h"

namespace productTree {

namespace {

using format_label_utils::FormatLabelForDisplay;

// Each member shows its mass in shown units.
double SumMembers(const ProductTreeItemImpl& group, const SharedText& columnId) {
    double sum = 0;
    group.ForEachChildItem([&](const ProductTreeItemImpl& child) {
        sum += child.GetCellValue(columnId).to_double();
        return true;
    });
    return sum;
}

std::vector<UniqueMetaObjectKey> GetKeys(const ProductTreeItemImpl& item) {
    std::vector<UniqueMetaObjectKey> keys;
    item.AppendKey(keys);
    return keys;
}

} // namespace

void MipGroupCellImpl::InitEditor() {
    m_row->InitLinkEditor(GetColumnId(), {}, false, {}, true, {}, LinkStyleLive);
}

void MipGroupCellImpl::Update() {
    ResetCaches();
    const SimplePropVal value = GetGroupValue();
    ShowCommon(value, false);
    SetShownText(value.to_wstring());
}

TreeActionResult MipGroupCellImpl::OnValueEdited() {
    return {};
}

TreeActionResult MipGroupCellImpl::OnHypertextActivated() {
    return EditMipOf(*m_data, GetKeys(GetItem()), MipSource::Link, TreeActionResult::Synchronise);
}

int MipGroupCellImpl::GetLinkStyle() {
    return LinkStyleLive;
}

bool MipGroupCellImpl::AreMembersEmpty() const {
    return GetItem().ForEachChildItem([&](const ProductTreeItemImpl& child) {
        return child.GetCellValue(GetColumnId()).to_wstring().IsEmpty();
    });
}

void MipGroupCellImpl::ShowCommon(const SimplePropVal& value, bool isOutdated) {
    static const SharedText mixed =
        GetResourceText("IDS_PRODUCTTREE_SPC_GROUP_CELL_MIXED_VALUE_TIP");
    const SharedText text = value.to_wstring();
    const bool isMixed = text.IsEmpty() && !AreMembersEmpty();
    ShowMip(text, true, isMixed ? mixed : SharedText(), isOutdated);
}

void MipGroupCellImpl::ShowMip(const SharedText& shown, bool opensEditor, const SharedText& tip,
                               bool isOutdated) {
    m_row->SetLinkCell(GetColumnId(), shown, opensEditor, tip, IsEditable(), false, isOutdated,
                       GetSourceIcon(), GetLinkStyle());
}

void MassGroupCellImpl::Update() {
    ResetCaches();
    const bool isOutdated = IsEditable() && !GetItem().IsActual();
    if (m_data->IsEmbodimentMode()) {
        SetGroupMode(GroupMode::CommonValue);
        const SimplePropVal value = GetGroupValue();
        ShowCommon(value, isOutdated);
        SetShownValue(value);
        return;
    }
    SetGroupMode(GroupMode::NoValue);
    const SimplePropVal sum(SumMembers(GetItem(), GetColumnId()));
    ShowMip(sum.to_wstring(), false, {}, isOutdated);
    SetShownValue(sum);
}

void DensityGroupCellImpl::Update() {
    ResetCaches();
    const SimplePropVal value = GetGroupValue();
    ShowCommon(value, false);
    SetShownValue(value);
}

void MipNumberGroupCellImpl::InitEditor() {
    m_row->InitDoubleEditor(GetColumnId(), std::nullopt, true, true, {}, 1.0, m_column.GetMin(),
                            m_column.GetMax());
}

TreeActionResult MipNumberGroupCellImpl::OnValueEdited() {
    ProductInfObjChangesResult changes;
    if (const std::optional<double> value = m_row->GetDoubleValue(GetColumnId()))
        changes = MakeChanges(PropValue(SimplePropVal(m_column.UnapplyUnitCoefficient(*value))),
                              std::nullopt);
    return FinishEdit(std::move(changes), TreeActionResult::ValuesChanged, [this] {
        m_row->SetDoubleValue(GetColumnId(), m_value.to_double(), !m_value.IsEmpty());
    });
}

void MipNumberGroupCellImpl::ShowNumber(const SimplePropVal& value, const SharedText& linked) {
    if (HasHypertext())
        ShowLink(linked, GetSourceIcon());
    else
        m_row->SetDoubleCell(GetColumnId(), value.to_double(), !value.IsEmpty(), IsEditable(),
                             GetSourceIcon(), m_column.GetMin(), m_column.GetMax());
    SetShownValue(value);
}

void MassSimplifiedGroupCellImpl::Update() {
    ResetCaches();
    const bool isSum = !m_data->IsEmbodimentMode();
    SetGroupMode(isSum ? GroupMode::NoValue : GroupMode::CommonValue);
    const SimplePropVal value =
        isSum ? SimplePropVal(SumMembers(GetItem(), GetColumnId())) : GetGroupValue();
    ShowNumber(value, value.to_wstring());
}

void DensitySimplifiedGroupCellImpl::Update() {
    ResetCaches();
    const SimplePropVal value = GetGroupValue();
    ShowNumber(value, FormatLabelForDisplay(value.to_wstring()));
}

TreeActionResult MaterialSimplifiedGroupCellImpl::OnPopupCommand(int command) {
    return ExecMaterialCommand(*m_data, GetKeys(GetItem()), command);
}

MenuPtr MaterialSimplifiedGroupCellImpl::GetPopupMenu() {
    static SharedMenu menu(GetMaterialCommands());
    return IsEditable() ? menu.Get() : nullptr;
}

} // namespace productTree
