#include "cells/RoughnessCells.h"

#include "cells/CellCommands.h"
#include "cells/CellMenus.h"
#include "cells/CellValues.h"
#include "host/data/IfProductTreeData.h"
#include "resources/ProductTreeResources.h"

namespace productTree {

namespace {

const std::list<SimplePropVal>& GetYesAndNo() {
    static const std::list<SimplePropVal> list{SimplePropVal(GetResourceText("IDS_YES")),
                                               SimplePropVal(GetResourceText("IDS_NO"))};
    return list;
}

// -1: none of them.
int FindText(const std::list<SimplePropVal>& list, const SharedText& text) {
    int place = 0;
    for (const SimplePropVal& value : list) {
        if (value.to_wstring() == text)
            return place;
        ++place;
    }
    return -1;
}

int FindYesOrNo(const SimplePropVal& value) {
    if (value.IsEmpty())
        return -1;
    if (value.GetType() == SimplePropVal::TypeInt)
        return value.to_int() == notSected::no ? 1 : 0;
    return FindText(GetYesAndNo(), value.to_wstring());
}

// No place takes the value away.
PropValue ToNotSected(int place) {
    return place < 0 ? PropValue() : PropValue(SimplePropVal(notSected::FromPlace(place)));
}

// Both values are the dialog's; it says what becomes of them.
TreeActionResult EditRoughness(IfProductTreeData& data, const UniqueMetaObjectKey& key) {
    TreeActionResult result;
    ProductInfObjChangesResult changes;
    if (data.EditRoughSign(key, changes)) {
        data.CommitChanges(changes);
        result.action = TreeActionResult::ValuesChanged;
    }
    return result;
}

} // namespace

void RoughSignCellImpl::Update() {
    if (!m_data->GetValue(MakeRef()).IsEmpty()) {
        ListCellImpl::Update();
        return;
    }
    ResetCaches();
    m_row->SetListCell(GetColumnId(), {}, -1, IsEditable(), GetSourceIcon());
}

TreeActionResult RoughSignCellImpl::OnValueEdited() {
    const int place = m_row->GetListIndex(GetColumnId());
    const PropValue value = place < 0 ? PropValue() : PropValue(SimplePropVal(place));
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::ValuesChanged, [this] {
        const int index = FindInList(m_column.GetShownList(), m_value);
        if (index >= 0)
            m_row->SetListIndex(GetColumnId(), index);
    });
}

bool RoughSignCellImpl::ExecCommand(int command, TreeActionResult& out) {
    if (command != commands::editRoughSign)
        return ListCellImpl::ExecCommand(command, out);
    out = EditRoughness(*m_data, m_key);
    return true;
}

std::set<int> RoughSignCellImpl::GetAvailableCommands() {
    std::set<int> available = ListCellImpl::GetAvailableCommands();
    if (IsEditable())
        available.insert(commands::editRoughSign);
    return available;
}

int RoughSignCellImpl::GetValueIndex() {
    const PropValue value = m_data->GetValue(MakeRef());
    return value.IsEmpty() ? -1 : value.to_int();
}

TreeActionResult RoughValueCellImpl::OnPopupCommand(int command) {
    return command == commands::editRoughSign ? EditRoughness(*m_data, m_key) : TreeActionResult();
}

MenuPtr RoughValueCellImpl::GetPopupMenu() {
    static constexpr int entries[] = {commands::editRoughSign};
    static SharedMenu menu(entries);
    return IsEditable() ? menu.Get() : nullptr;
}

void NotSectedCellImpl::InitEditor() {
    m_row->InitListEditor(GetColumnId(), GetYesAndNo(), 0, true, {});
}

ProductInfObjChangesResult NotSectedCellImpl::MakeChanges(const PropValue& value,
                                                          std::optional<int>) {
    return MakeEditableChanges(value);
}

void NotSectedCellImpl::Update() {
    const PropertyReading reading = Read();
    const SimplePropVal& stored = reading.GetValue().GetSimpleValue();
    const int place = FindYesOrNo(stored);
    m_row->SetListCell(GetColumnId(), GetYesAndNo(), place, IsEditable(), GetSourceIcon());
    const SimplePropVal* const shown = GetFromList(GetYesAndNo(), place);
    SetShownValue(shown ? *shown : SimplePropVal());
    if (!(m_propValue.GetSimpleValue() == stored))
        m_propValue = PropValue(stored);
}

TreeActionResult NotSectedCellImpl::OnValueEdited() {
    const int place = m_row->GetListIndex(GetColumnId());
    return FinishEdit(MakeChanges(ToNotSected(place), std::nullopt),
                      TreeActionResult::ValuesChanged,
                      [this] { m_row->SetListIndex(GetColumnId(), FindYesOrNo(m_value)); });
}

void NotSectedGroupCellImpl::InitEditor() {
    m_row->InitListEditor(GetColumnId(), m_column.GetStoredList(), 0, true, {});
}

int NotSectedGroupCellImpl::FindGroupIndex() const {
    return FindText(GetYesAndNo(), GetGroupValue().to_wstring());
}

void NotSectedGroupCellImpl::Update() {
    ResetCaches();
    const int place = FindGroupIndex();
    ShowFromList(place, GetSourceIcon());
    m_propValue = ToNotSected(m_value.IsEmpty() ? -1 : place);
}

TreeActionResult NotSectedGroupCellImpl::OnValueEdited() {
    const int place = m_row->GetListIndex(GetColumnId());
    return FinishEdit(MakeChanges(ToNotSected(place), std::nullopt),
                      TreeActionResult::ValuesChanged,
                      [this] { m_row->SetListIndex(GetColumnId(), FindGroupIndex()); });
}

} // namespace productTree
