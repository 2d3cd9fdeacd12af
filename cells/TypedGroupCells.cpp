#include "cells/TypedGroupCells.h"

#include "cells/CellValues.h"
#include "host/FormatLabelUtils.h"

#include <algorithm>
#include <utility>

namespace productTree {

using format_label_utils::FormatLabelForDisplay;

void StringGroupCellImpl::InitEditor() {
    m_row->InitTextEditor(GetColumnId(), {}, true, {}, nullptr);
}

void StringGroupCellImpl::Update() {
    ResetCaches();
    const SharedText text = GetGroupValue().to_wstring();
    const SharedText shown = FormatLabelForDisplay(text);
    if (HasHypertext())
        ShowLink(shown, GetSourceIcon());
    else
        m_row->SetTextCell(GetColumnId(), GetRawText(text), shown, IsEditable(), false,
                           GetSourceIcon(), GetPopupMenu());
    SetShownText(text);
}

TreeActionResult StringGroupCellImpl::OnValueEdited() {
    const PropValue value{SimplePropVal(m_row->GetCellText(GetColumnId()))};
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::ValuesChanged, [this] {
        const SharedText text = m_value.to_wstring();
        m_row->SetCellText(GetColumnId(), GetRawText(text), FormatLabelForDisplay(text));
    });
}

MenuPtr StringGroupCellImpl::GetPopupMenu() {
    return nullptr;
}

SharedText StringGroupCellImpl::GetRawText(const SharedText& text) const {
    return GetGroupMode() == GroupMode::CommonValue ? text : SharedText();
}

void UserIntGroupCellImpl::InitEditor() {
    m_row->InitIntEditor(GetColumnId(), 0, true, ToLimit(m_column.GetMin()),
                         ToLimit(m_column.GetMax()), true, {});
}

// The members show values in shown units already.
void UserIntGroupCellImpl::Update() {
    ResetCaches();
    const SimplePropVal value = GetGroupValue();
    if (HasHypertext())
        ShowLink(FormatLabelForDisplay(value.to_wstring()), GetSourceIcon());
    else
        m_row->SetIntCell(GetColumnId(), ToInt(value), ToLimit(m_column.GetMin()),
                          ToLimit(m_column.GetMax()), IsEditable(), false, GetSourceIcon());
    SetShownValue(value);
}

TreeActionResult UserIntGroupCellImpl::OnValueEdited() {
    return FinishEdit(MakeChangesFromInt(), TreeActionResult::ValuesChanged,
                      [this] { m_row->SetIntValue(GetColumnId(), ToInt(m_value)); });
}

void UserDoubleGroupCellImpl::InitEditor() {
    m_row->InitDoubleEditor(GetColumnId(), std::nullopt, true, true, {}, 1.0, m_column.GetMin(),
                            m_column.GetMax());
}

void UserDoubleGroupCellImpl::Update() {
    ResetCaches();
    const SimplePropVal value = GetGroupValue();
    if (HasHypertext())
        ShowLink(FormatLabelForDisplay(value.to_wstring()), GetSourceIcon());
    else
        m_row->SetDoubleCell(GetColumnId(), value.to_double(), !value.IsEmpty(), IsEditable(),
                             GetSourceIcon(), m_column.GetMin(), m_column.GetMax());
    SetShownValue(value);
}

TreeActionResult UserDoubleGroupCellImpl::OnValueEdited() {
    return FinishEdit(MakeChangesFromDouble(), TreeActionResult::ValuesChanged, [this] {
        m_row->SetDoubleValue(GetColumnId(), m_value.to_double(), !m_value.IsEmpty());
    });
}

void UserBoolGroupCellImpl::InitEditor() {
    m_row->InitBoolEditor(GetColumnId(), true, true, true, {});
}

void UserBoolGroupCellImpl::Update() {
    ResetCaches();
    const SimplePropVal value = GetGroupValue();
    m_row->SetBoolCell(GetColumnId(), ToBool(value), true, IsEditable(), GetSourceIcon());
    SetShownValue(value);
}

// What goes back is worked out afresh: the members may show something else by now.
TreeActionResult UserBoolGroupCellImpl::OnValueEdited() {
    const PropValue value(ToSimpleValue(m_row->GetBoolValue(GetColumnId())));
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::ValuesChanged,
                      [this] { m_row->SetBoolValue(GetColumnId(), ToBool(GetGroupValue())); });
}

void ListGroupCellImpl::InitEditor() {
    m_row->InitListEditor(GetColumnId(), m_column.GetStoredList(), 0, true, {});
}

// Texts are compared, and in shown units: that is what the members give.
int ListGroupCellImpl::FindGroupIndex() const {
    const SharedText text = GetGroupValue().to_wstring();
    int index = 0;
    for (const SimplePropVal& value : m_column.GetShownList()) {
        if (value.to_wstring() == text)
            return index;
        ++index;
    }
    return -1;
}

void ListGroupCellImpl::Update() {
    ResetCaches();
    ShowFromList(FindGroupIndex(), GetSourceIcon());
}

TreeActionResult ListGroupCellImpl::OnValueEdited() {
    // No place in the list takes the members' values away, whether they agree or not.
    const bool isEmptied = m_row->GetListIndex(GetColumnId()) < 0;
    return FinishEdit(isEmptied ? MakeChanges(PropValue(), std::nullopt) : MakeChangesFromList(),
                      TreeActionResult::ValuesChanged,
                      [this] { m_row->SetListIndex(GetColumnId(), FindGroupIndex()); });
}

} // namespace productTree
