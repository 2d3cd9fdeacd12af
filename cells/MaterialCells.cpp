#include "cells/MaterialCells.h"

#include "cells/CellCommands.h"
#include "cells/CellMenus.h"
#include "host/FormatLabelUtils.h"
#include "items/ProductTreeItemImpl.h"

namespace productTree {

namespace {

using format_label_utils::FormatLabelForDisplay;

constexpr int c_materialCommands[] = {commands::chooseMaterial, commands::takeMaterialAway};

} // namespace

std::span<const int> GetMaterialCommands() {
    return c_materialCommands;
}

TreeActionResult EditMipOf(IfProductTreeData& data, const std::vector<UniqueMetaObjectKey>& keys,
                           MipSource source, int changed) {
    TreeActionResult result;
    if (data.EditMip(keys, source))
        result.action = changed;
    return result;
}

TreeActionResult ExecMaterialCommand(IfProductTreeData& data,
                                     const std::vector<UniqueMetaObjectKey>& keys, int command) {
    switch (command) {
    case commands::chooseMaterial:
        return EditMipOf(data, keys, MipSource::FromBook, TreeActionResult::Refresh);
    case commands::takeMaterialAway:
        return EditMipOf(data, keys, MipSource::TakeAway, TreeActionResult::Refresh);
    default:
        return {};
    }
}

void MipCellImpl::InitEditor() {
    m_row->InitLinkEditor(GetColumnId(), {}, false, {}, true, {}, LinkStyleLive);
}

ProductInfObjChangesResult MipCellImpl::MakeChanges(const PropValue&, std::optional<int>) {
    return {};
}

TreeActionResult MipCellImpl::OnValueEdited() {
    return {};
}

TreeActionResult MipCellImpl::OnHypertextActivated() {
    return EditMipOf(*m_data, {m_key}, MipSource::Link, TreeActionResult::Synchronise);
}

int MipCellImpl::GetLinkStyle() {
    return LinkStyleLive;
}

void MipCellImpl::ShowMip(const SharedText& shown, bool isOutdated) {
    m_row->SetLinkCell(GetColumnId(), shown, true, {}, IsEditable(), false, isOutdated,
                       GetSourceIcon(), GetLinkStyle());
}

std::optional<MipCellImpl::Amount> MipCellImpl::ReadAmount() {
    const PropertyReading reading = Read();
    if (reading.GetValue().IsEmpty())
        return std::nullopt;
    const double number = m_column.ApplyUnitCoefficient(reading.GetValue().to_double());
    return Amount{number, SimplePropVal(number).to_wstring()};
}

void MassCellImpl::Update() {
    const Amount mass = ReadAmount().value_or(Amount{});
    ShowMip(mass.text, IsEditable() && !GetItem().IsActual());
    SetShownValue(SimplePropVal(mass.number));
}

void DensityCellImpl::Update() {
    const std::optional<Amount> density = ReadAmount();
    ShowMip(density ? density->text : SharedText(), false);
    SetShownValue(density ? SimplePropVal(density->number) : SimplePropVal());
}

void MaterialNameCellImpl::Update() {
    const PropertyReading reading = Read();
    const SharedText text = reading.GetValue().to_wstring();
    SharedText room;
    ShowMip(FindDisplay(text, room, FormatLabelForDisplay), false);
    SetShownText(text);
}

TreeActionResult MaterialSimplifiedCellImpl::OnPopupCommand(int command) {
    return ExecMaterialCommand(*m_data, {m_key}, command);
}

MenuPtr MaterialSimplifiedCellImpl::GetPopupMenu() {
    static SharedMenu menu(c_materialCommands);
    return IsEditable() ? menu.Get() : nullptr;
}

} // namespace productTree
