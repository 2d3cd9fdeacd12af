#include "cells/SectionAndPositionCells.h"

#include "cells/JoinedText.h"
#include "columns/PropertyKeys.h"
#include "host/SPCSection.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"
#include "resources/ProductTreeResources.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace productTree {

namespace {

SPCSection ReadSection(const PropValue& value) {
    SPCSection section;
    spc_section::FromPropertyTree(section, value.GetPropertyTree());
    return section;
}

void InitSectionEditor(ITreeTableRow& row, const SharedText& columnId) {
    row.InitLinkEditor(columnId, {}, false, {}, true, {}, LinkStyleLive);
}

SectionChoice AskForSection(IfProductTreeData& data, const PropValue& present, bool nameLinked) {
    return data.EditSection(PropValueRef(present.GetPropData()), nameLinked);
}

// Where rows stand by sections, a changed section needs them built anew.
TreeActionResult AfterSectionChange(TreeActionResult result, const IfProductTreeData& data) {
    if (result.action != TreeActionResult::Nothing && data.IsSortedBySection())
        result.action = TreeActionResult::Synchronise;
    return result;
}

// Nothing, or digits that make a number from 1 on.
bool IsPosition(const PropValue& value) {
    const SharedText text = value.to_wstring();
    const auto isDigit = [](wchar_t c) { return c >= L'0' && c <= L'9'; };
    return text.IsEmpty() || (std::ranges::all_of(text.Str(), isDigit) && value.to_int() >= 1);
}

// A position's text is mostly the one that is shown already, and then made only once.
SharedText ToText(const PropValue& value, const SimplePropVal& last) {
    if (value.GetSimpleValue().GetType() != SimplePropVal::TypeInt)
        return value.to_wstring();
    std::array<char, 16> digits;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value.to_int()).ptr;
    std::array<wchar_t, 16> text;
    const auto* const textEnd = std::copy(digits.data(), end, text.data());
    return JoinTexts(last.to_wstring(), {std::wstring_view(text.data(), textEnd)});
}

void InitPositionEditor(ITreeTableRow& row, const SharedText& columnId) {
    row.InitTextEditor(columnId, {}, true, {}, nullptr);
}

} // namespace

void SPCSectionCellImpl::InitEditor() {
    InitSectionEditor(*m_row, GetColumnId());
}

ProductInfObjChangesResult SPCSectionCellImpl::MakeChanges(const PropValue& value,
                                                           std::optional<int> extra) {
    if (!IsEditable() || !extra)
        return {};
    ProductInfObjChangesResult changes = m_data->MakeValueChanges(MakeRef(), value);
    const bool isLinked = *extra != 0;
    if (isLinked) {
        static const SharedText nameId = keys::name;
        static const SharedText materialNameId = keys::materialName;
        const PropValue name =
            m_data->GetValue({m_key, UniqueMetaObjectKey::null, materialNameId, std::nullopt});
        MergeChanges(changes, m_data->MakeValueChanges(
                                  {m_key, UniqueMetaObjectKey::null, nameId, std::nullopt}, name));
    }
    MergeChanges(changes, m_data->MakeSectionNameChanges(m_key, isLinked));
    return changes;
}

void SPCSectionCellImpl::Update() {
    const PropertyReading reading = Read();
    const PropValue& value = reading.GetValue();
    // A section that was shown last time need not be taken apart again.
    const bool isShown = value.SharesTree(m_propValue);
    const SharedText text = isShown ? m_value.to_wstring() : ReadSection(value).name;
    m_row->SetLinkCell(GetColumnId(), text, true, {}, IsEditable(), false, false, GetSourceIcon(),
                       GetLinkStyle());
    if (!isShown) {
        m_value = SimplePropVal(text);
        m_propValue = value;
    }
}

TreeActionResult SPCSectionCellImpl::OnValueEdited() {
    return {};
}

TreeActionResult SPCSectionCellImpl::OnHypertextActivated() {
    const PropValue present = m_data->GetValue(MakeRef());
    const SectionChoice choice =
        AskForSection(*m_data, present, m_data->IsSectionNameLinked(m_key));
    if (!choice.ok)
        return {};
    return AfterSectionChange(FinishEdit(MakeChanges(choice.value, choice.nameLinked ? 1 : 0),
                                         TreeActionResult::ValuesChanged, [] {}),
                              *m_data);
}

int SPCSectionCellImpl::GetLinkStyle() {
    return LinkStyleLive;
}

void SpcSectionGroupCellImpl::InitEditor() {
    InitSectionEditor(*m_row, GetColumnId());
}

ProductInfObjChangesResult SpcSectionGroupCellImpl::MakeChanges(const PropValue& value,
                                                                std::optional<int> extra) {
    if (!IsEditable() || !extra)
        return {};
    return GroupCellImpl::MakeChanges(value, extra);
}

void SpcSectionGroupCellImpl::Update() {
    ResetCaches();
    const ProductTreeCellImpl* first = nullptr;
    const bool isSame = AllMembers([&](const ProductTreeCellImpl& member) {
        if (!first)
            first = &member;
        const PropValue held = first->GetShownPropValue();
        const PropValue value = member.GetShownPropValue();
        return held == value || ReadSection(held) == ReadSection(value);
    });

    SimplePropVal text;
    PropValue value;
    SharedText tip;
    if (!isSame) {
        static const SharedText mixed =
            GetResourceText("IDS_PRODUCTTREE_SPC_GROUP_CELL_MIXED_VALUE_TIP");
        tip = mixed;
    } else if (first) {
        text = first->GetShownValue();
        value = first->GetShownPropValue();
    }
    m_row->SetLinkCell(GetColumnId(), text.to_wstring(), true, tip, IsEditable(), false, false,
                       GetSourceIcon(), GetLinkStyle());
    m_value = SimplePropVal(text.to_wstring());
    m_propValue = std::move(value);
}

TreeActionResult SpcSectionGroupCellImpl::OnValueEdited() {
    return {};
}

TreeActionResult SpcSectionGroupCellImpl::OnHypertextActivated() {
    const PropValue present = m_propValue;
    const SectionChoice choice = AskForSection(*m_data, present, GetItem().IsSectionNameLinked());
    if (!choice.ok)
        return {};
    return AfterSectionChange(FinishEdit(MakeChanges(choice.value, choice.nameLinked ? 1 : 0),
                                         TreeActionResult::ValuesChanged, [] {}),
                              *m_data);
}

int SpcSectionGroupCellImpl::GetLinkStyle() {
    return LinkStyleLive;
}

PropertyRef PosCellImpl::MakePositionRef() const {
    return {m_key, UniqueMetaObjectKey::null, GetColumnId(), IsInGroupRow()};
}

void PosCellImpl::InitEditor() {
    InitPositionEditor(*m_row, GetColumnId());
}

ProductInfObjChangesResult PosCellImpl::MakeChanges(const PropValue& value, std::optional<int>) {
    if (!IsPosition(value))
        return {};
    return m_data->MakeValueChanges(MakePositionRef(), value);
}

void PosCellImpl::Update() {
    ResetCaches();
    const SharedText text = ToText(m_data->GetValue(MakePositionRef()), m_value);
    if (HasHypertext())
        ShowLink(text, GetSourceIcon());
    else
        m_row->SetTextCell(GetColumnId(), text, text, IsEditable(), false, {}, nullptr);
    SetShownValue(SimplePropVal(text));
}

TreeActionResult PosCellImpl::OnValueEdited() {
    const PropValue value{SimplePropVal(m_row->GetCellText(GetColumnId()))};
    FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::Synchronise, [this] {
        const SharedText text = m_data->GetValue(MakePositionRef()).to_wstring();
        m_row->SetCellText(GetColumnId(), text, text);
    });
    // Also for a refused one: the numbers around it may have moved since they were shown.
    TreeActionResult result;
    result.action = TreeActionResult::Synchronise;
    return result;
}

PropertyRef PosGroupCellImpl::MakePositionRef() const {
    return {m_key, UniqueMetaObjectKey::null, GetColumnId(), IsInGroupRow()};
}

void PosGroupCellImpl::InitEditor() {
    InitPositionEditor(*m_row, GetColumnId());
}

ProductInfObjChangesResult PosGroupCellImpl::MakeChanges(const PropValue& value,
                                                         std::optional<int>) {
    if (!IsEditable() || !IsPosition(value))
        return {};
    return m_data->MakeValueChanges(MakePositionRef(), value);
}

void PosGroupCellImpl::Update() {
    ResetCaches();
    const SharedText text = ToText(m_data->GetValue(MakePositionRef()), m_value);
    m_row->SetTextCell(GetColumnId(), text, text, IsEditable(), false, {}, nullptr);
    SetShownValue(SimplePropVal(text));
}

TreeActionResult PosGroupCellImpl::OnValueEdited() {
    const PropValue value{SimplePropVal(m_row->GetCellText(GetColumnId()))};
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::ValuesChanged, [this] {
        const SharedText text = m_value.to_wstring();
        m_row->SetCellText(GetColumnId(), text, text);
    });
}

} // namespace productTree
