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
    ResetCaches();
    const SharedText text = m_data->GetValue(MakeRef()).GetLabel();
    const SharedText shown = FormatLabelForDisplay(text);
    if (HasHypertext())
        ShowLink(shown);
    else
        m_row->SetTextCell(GetColumnId(), text, shown, IsEditable(), false, GetSourceIcon(),
                           GetPopupMenu());
    SetShownValue(SimplePropVal(text));
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
    ResetCaches();
    const PropValue stored = m_data->GetValue(MakeRef());
    std::optional<int> value;
    if (!stored.IsEmpty())
        value = m_column.ApplyUnitCoefficient(stored.to_int());
    if (HasHypertext())
        ShowLink(ToText(value));
    else
        m_row->SetIntCell(GetColumnId(), value, ToLimit(m_column.GetMin()),
                          ToLimit(m_column.GetMax()), IsEditable(), false, GetSourceIcon());
    SetShownValue(ToSimpleValue(value));
}

// An emptied editor is no wish to take the value away: integers have no such state.
TreeActionResult IntCellImpl::OnValueEdited() {
    ProductInfObjChangesResult changes;
    if (const std::optional<int> value = m_row->GetIntValue(GetColumnId()))
        changes = MakeChanges(PropValue(SimplePropVal(m_column.UnapplyUnitCoefficient(*value))),
                              std::nullopt);
    return FinishEdit(std::move(changes), TreeActionResult::ValuesChanged,
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
    ResetCaches();
    const PropValue stored = m_data->GetValue(MakeRef());
    std::optional<double> value;
    if (!stored.IsEmpty())
        value = m_column.ApplyUnitCoefficient(stored.to_double());
    if (HasHypertext())
        ShowLink(ToText(value));
    else
        m_row->SetDoubleCell(GetColumnId(), value.value_or(0), value.has_value(), IsEditable(),
                             GetSourceIcon(), m_column.GetMin(), m_column.GetMax());
    SetShownValue(ToSimpleValue(value));
}

TreeActionResult DoubleCellImpl::OnValueEdited() {
    PropValue stored;
    if (const std::optional<double> value = m_row->GetDoubleValue(GetColumnId()))
        stored = PropValue(SimplePropVal(m_column.UnapplyUnitCoefficient(*value)));
    return FinishEdit(MakeChanges(stored, std::nullopt), TreeActionResult::ValuesChanged, [this] {
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
    ResetCaches();
    const SimplePropVal stored = m_data->GetValue(MakeRef()).GetSimpleValue();
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
    return FindInList(m_column.GetStoredList(), m_data->GetValue(MakeRef()).GetSimpleValue());
}

void ListCellImpl::Update() {
    ResetCaches();
    const int index = GetValueIndex();
    const std::list<SimplePropVal>& list = m_column.GetShownList();
    m_row->SetListCell(GetColumnId(), list, index, IsEditable(), GetSourceIcon());
    const SimplePropVal* const shown = GetFromList(list, index);
    SetShownValue(shown ? *shown : SimplePropVal());
}

// The list of stored values has the same places as the list that is shown.
TreeActionResult ListCellImpl::OnValueEdited() {
    ProductInfObjChangesResult changes;
    if (const SimplePropVal* const value =
            GetFromList(m_column.GetStoredList(), m_row->GetListIndex(GetColumnId())))
        changes = MakeChanges(PropValue(*value), std::nullopt);
    return FinishEdit(std::move(changes), TreeActionResult::ValuesChanged, [this] {
        const int index = FindInList(m_column.GetShownList(), m_value);
        if (index >= 0)
            m_row->SetListIndex(GetColumnId(), index);
    });
}

bool FeatureTypeCellImpl::IsEditable() {
    m_editable = false;
    return false;
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

TreeActionResult FeatureTypeCellImpl::OnValueEdited() {
    return {};
}

bool EmptyDisabledCellImpl::IsEditable() {
    m_editable = false;
    return false;
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

TreeActionResult EmptyDisabledCellImpl::OnValueEdited() {
    return {};
}

} // namespace productTree
