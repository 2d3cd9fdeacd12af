#include "cells/PlainCells.h"

#include "cells/CellValues.h"
#include "cells/JoinedText.h"
#include "host/FormatLabelUtils.h"
#include "host/NumberTexts.h"
#include "host/ProductProperties.h"
#include "host/data/IfProductTreeData.h"

#include <utility>

namespace productTree {

namespace {

using format_label_utils::FormatLabelForDisplay;

// A link has room for a number of this many digits behind the point.
constexpr int c_linkDigits = 6;

// A variable property is not bound by its range. The test runs on stored units.
bool IsInRange(const ColumnInfo& column, double value) {
    return column.IsVariable() || column.IsValueInMinMaxRange(value);
}

SharedText ToText(const std::optional<int>& value) {
    return value ? SharedText(std::to_wstring(*value)) : SharedText();
}

SharedText ToText(const std::optional<double>& value) {
    return value ? orvex::sys::ToString(*value, true, c_linkDigits) : SharedText();
}

} // namespace

void StringCellImpl::InitEditor() {
    m_row->InitTextEditor(GetColumnId(), {}, true, {}, nullptr);
}

ProductInfObjChangesResult StringCellImpl::MakeChanges(const PropValue& value, std::optional<int>) {
    return MakeEditableChanges(value);
}

void StringCellImpl::Update() {
    const PropertyReading reading = Read();
    if (const SharedText* const text = reading.GetValue().GetSimpleValue().FindText())
        Show(*text);
    else if (reading.GetValue().GetSimpleValue().GetType() == SimplePropVal::TypeDateTime)
        ShowMoment(reading.GetValue().GetLabel());
    else
        Show(reading.GetValue().GetLabel());
}

void StringCellImpl::ShowMoment(const SharedText& text) {
    if (HasHypertext())
        ShowLink(text, GetSourceIcon());
    else
        m_row->SetTimeCell(GetColumnId(), text, IsEditable(), GetSourceIcon());
    SetShownText(text);
}

void StringCellImpl::Show(const SharedText& text) {
    SharedText room;
    const SharedText& shown = FindDisplay(text, room, FormatLabelForDisplay);
    if (HasHypertext())
        ShowLink(shown, GetSourceIcon());
    else
        m_row->SetTextCell(GetColumnId(), text, shown, IsEditable(), false, GetSourceIcon(),
                           GetPopupMenu());
    SetShownText(text);
}

TreeActionResult StringCellImpl::OnValueEdited() {
    const PropValue value{SimplePropVal(m_row->GetCellText(GetColumnId()))};
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::ValuesChanged, [this] {
        const SharedText text = m_value.to_wstring();
        m_row->SetCellText(GetColumnId(), text, FormatLabelForDisplay(text));
    });
}

MenuPtr StringCellImpl::GetPopupMenu() {
    return nullptr;
}

void IntCellImpl::InitEditor() {
    m_row->InitIntEditor(GetColumnId(), 0, true, ToLimit(m_column.GetMin()),
                         ToLimit(m_column.GetMax()), true, {});
}

ProductInfObjChangesResult IntCellImpl::MakeChanges(const PropValue& value, std::optional<int>) {
    if (!IsEditable() || !IsInRange(m_column, value.to_int()))
        return {};
    return m_data->MakeValueChanges(MakeRef(), value);
}

void IntCellImpl::Update() {
    const PropertyReading reading = Read();
    std::optional<int> value;
    if (!reading.GetValue().IsEmpty())
        value = m_column.ApplyUnitCoefficient(reading.GetValue().to_int());
    if (HasHypertext())
        ShowLink(ToText(value), GetSourceIcon());
    else
        m_row->SetIntCell(GetColumnId(), value, ToLimit(m_column.GetMin()),
                          ToLimit(m_column.GetMax()), IsEditable(), false, GetSourceIcon());
    SetShownValue(ToSimpleValue(value));
}

TreeActionResult IntCellImpl::OnValueEdited() {
    return FinishEdit(MakeChangesFromInt(), TreeActionResult::ValuesChanged,
                      [this] { m_row->SetIntValue(GetColumnId(), ToInt(m_value)); });
}

void DoubleCellImpl::InitEditor() {
    m_row->InitDoubleEditor(GetColumnId(), std::nullopt, true, true, {}, 1.0, m_column.GetMin(),
                            m_column.GetMax());
}

ProductInfObjChangesResult DoubleCellImpl::MakeChanges(const PropValue& value, std::optional<int>) {
    if (!IsEditable() || !IsInRange(m_column, value.to_double()))
        return {};
    return m_data->MakeValueChanges(MakeRef(), value);
}

void DoubleCellImpl::Update() {
    const PropertyReading reading = Read();
    std::optional<double> value;
    if (!reading.GetValue().IsEmpty())
        value = m_column.ApplyUnitCoefficient(reading.GetValue().to_double());
    if (HasHypertext())
        ShowLink(ToText(value), GetSourceIcon());
    else
        m_row->SetDoubleCell(GetColumnId(), value.value_or(0), value.has_value(), IsEditable(),
                             GetSourceIcon(), m_column.GetMin(), m_column.GetMax());
    SetShownValue(ToSimpleValue(value));
}

TreeActionResult DoubleCellImpl::OnValueEdited() {
    return FinishEdit(MakeChangesFromDouble(), TreeActionResult::ValuesChanged, [this] {
        m_row->SetDoubleValue(GetColumnId(), m_value.to_double(), !m_value.IsEmpty());
    });
}

void BoolCellImpl::InitEditor() {
    m_row->InitBoolEditor(GetColumnId(), true, true, true, {});
}

ProductInfObjChangesResult BoolCellImpl::MakeChanges(const PropValue& value, std::optional<int>) {
    return MakeEditableChanges(value);
}

// A truth value never shows as a link: its box has no text to click.
void BoolCellImpl::Update() {
    const PropertyReading reading = Read();
    const SimplePropVal& stored = reading.GetValue().GetSimpleValue();
    m_row->SetBoolCell(GetColumnId(), ToBool(stored), true, IsEditable(), GetSourceIcon());
    SetShownValue(stored);
}

TreeActionResult BoolCellImpl::OnValueEdited() {
    const PropValue value(ToSimpleValue(m_row->GetBoolValue(GetColumnId())));
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::ValuesChanged,
                      [this] { m_row->SetBoolValue(GetColumnId(), ToBool(m_value)); });
}

void ListCellImpl::InitEditor() {
    m_row->InitListEditor(GetColumnId(), m_column.GetStoredList(), 0, true, {});
}

ProductInfObjChangesResult ListCellImpl::MakeChanges(const PropValue& value, std::optional<int>) {
    return MakeEditableChanges(value);
}

int ListCellImpl::GetValueIndex() {
    const PropertyReading reading = m_data->ReadProperty(m_key, GetColumnId());
    return FindInList(m_column.GetStoredList(), reading.GetValue().GetSimpleValue());
}

void ListCellImpl::Update() {
    Read();
    ShowFromList(GetValueIndex(), GetSourceIcon());
}

TreeActionResult ListCellImpl::OnValueEdited() {
    return FinishEdit(MakeChangesFromList(), TreeActionResult::ValuesChanged, [this] {
        const int index = FindInList(m_column.GetShownList(), m_value);
        if (index >= 0)
            m_row->SetListIndex(GetColumnId(), index);
    });
}

void FeatureTypeCellImpl::InitEditor() {
    m_row->InitTextEditor(GetColumnId(), {}, true, {}, nullptr);
}

ProductInfObjChangesResult FeatureTypeCellImpl::MakeChanges(const PropValue&, std::optional<int>) {
    return {};
}

void FeatureTypeCellImpl::Update() {
    ResetCaches();
    SharedText text;
    const PropValue value = m_data->GetValue(MakeRef());
    if (!value.IsEmpty()) {
        const auto type = ProductProperties::ft::GetFtType(value.to_wstring());
        if (const wchar_t* const words = GetFeatureTypeStr(type))
            text = JoinTexts(m_value.to_wstring(), {words});
    }
    m_row->SetTextCell(GetColumnId(), text, text, IsEditable(), false, GetSourceIcon(), nullptr);
    SetShownValue(SimplePropVal(text));
}

void EmptyDisabledCellImpl::InitEditor() {
    m_row->InitTextEditor(GetColumnId(), {}, false, {}, nullptr);
}

ProductInfObjChangesResult EmptyDisabledCellImpl::MakeChanges(const PropValue&,
                                                              std::optional<int>) {
    return {};
}

void EmptyDisabledCellImpl::Update() {
    ResetCaches();
    m_row->SetTextCell(GetColumnId(), {}, {}, false, false, {}, nullptr);
}

} // namespace productTree
