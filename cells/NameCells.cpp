#include "cells/NameCells.h"

#include "cells/CellCommands.h"
#include "cells/CommonIcon.h"
#include "cells/JoinedText.h"
#include "cells/RowCommands.h"
#include "columns/PropertyKeys.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

#include <utility>

namespace productTree {

namespace {

void InsertExtendedReference(IfProductTreeData& data, const std::vector<UniqueMetaObjectKey>& keys,
                             TreeActionResult& out) {
    const bool inserted = data.InsertExtendedReference(keys);
    out.action = inserted ? TreeActionResult::Synchronise : TreeActionResult::Nothing;
}

} // namespace

void NameCellImpl::InitEditor() {}

ProductInfObjChangesResult NameCellImpl::MakeChanges(const PropValue& value, std::optional<int>) {
    return MakeEditableChanges(value);
}

void NameCellImpl::Update() {
    m_row->SetSectionNameStyle(false);
    m_row->SetSectionRowStyle(false);

    const PropertyReading reading = Read();
    if (const SharedText* const text = reading.GetValue().GetSimpleValue().FindText())
        Show(*text);
    else
        Show(reading.GetValue().to_wstring());
    const bool hypertext = HasHypertext();
    m_row->SetNameHypertext(hypertext);
    if (hypertext)
        m_row->SetNameLinkStyle(GetLinkStyle());
    m_row->SetNameEditable(IsEditable());
    m_row->SetNameIcon(GetSourceIcon());
}

void NameCellImpl::Show(const SharedText& text) {
    SharedText room;
    const SharedText& shown = FindDisplay(
        text, room, [this](const SharedText& name) { return GetItem().GetDisplayName(name); });
    m_row->SetName(text, shown, keys::name);
    SetShownText(text);
}

bool NameCellImpl::CanInsertExtendedReference() {
    return m_data->CanInsertExtendedReference(m_key);
}

TreeActionResult NameCellImpl::OnValueEdited() {
    const PropValue value{SimplePropVal(m_row->GetNameText())};
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::Synchronise, [this] {
        const SharedText text = m_value.to_wstring();
        m_row->SetName(text, GetItem().GetDisplayName(text), keys::name);
    });
}

bool NameCellImpl::ExecCommand(int command, TreeActionResult& out) {
    if (command != commands::insertExtendedReference)
        return ProductTreeCellImpl::ExecCommand(command, out);
    InsertExtendedReference(*m_data, {m_key}, out);
    return true;
}

std::set<int> NameCellImpl::GetAvailableCommands() {
    std::set<int> available = ProductTreeCellImpl::GetAvailableCommands();
    AddObjectCommands(*m_data, m_key, available);
    AddHighlightCommand(GetItem(), available);
    if (CanInsertExtendedReference())
        available.insert(commands::insertExtendedReference);
    AddRemoveCommand(GetItem(), available);
    return available;
}

void NameGroupCellImpl::InitEditor() {}

void NameGroupCellImpl::Update() {
    ResetCaches();
    m_row->SetSectionNameStyle(false);
    m_row->SetSectionRowStyle(false);

    SharedText raw;
    SharedText shown;
    bool first = true;
    bool equal = true;
    CommonIcon icon;
    ForEachChildRow(*m_row, [&](const ITreeTableRow& child) {
        if (equal) {
            const SharedText name = child.GetNameText();
            shown = child.GetNameDisplay();
            if (first)
                raw = name;
            equal = name == raw;
            first = false;
        }
        icon.Add(child.GetNameIcon());
        return true;
    });

    const SharedText suffix = GetItem().GetCountSuffix(1);
    if (equal && !shown.IsEmpty()) {
        shown = JoinTexts(m_value.to_wstring(), {shown.Str(), L" ", suffix.Str()});
    } else {
        raw = {};
        shown = suffix;
    }
    m_row->SetName(raw, shown, keys::name);
    m_row->SetNameEditable(IsEditable());
    const bool hypertext = HasHypertext();
    m_row->SetNameHypertext(hypertext);
    if (hypertext)
        m_row->SetNameLinkStyle(GetLinkStyle());
    m_row->SetNameIcon(icon.Get());
    m_value = SimplePropVal(shown);
    m_propValue = PropValue(SimplePropVal(raw));
}

bool NameGroupCellImpl::CanInsertExtendedReference() {
    if (m_data->IsEmbodimentMode())
        return false;
    std::vector<UniqueMetaObjectKey> with;
    std::vector<UniqueMetaObjectKey> without;
    GetItem().SplitByHypertext(with, without, keys::name);
    const bool haveAllTheSame = without.empty() && m_data->AreHypertext(with, keys::name) &&
                                m_data->IsExtendedReference(with.front());
    if (haveAllTheSame)
        return false;
    return AnyMember([this](ProductTreeCellImpl& cell) {
        return cell.CanInsertExtendedReference() ||
               (cell.CanEditHypertext() && m_data->IsExtendedReference(cell.GetKey()));
    });
}

TreeActionResult NameGroupCellImpl::OnValueEdited() {
    const PropValue value{SimplePropVal(m_row->GetNameText())};
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::Synchronise, [this] {
        m_row->SetName(m_propValue.to_wstring(), m_value.to_wstring(), keys::name);
    });
}

bool NameGroupCellImpl::ExecCommand(int command, TreeActionResult& out) {
    if (command != commands::insertExtendedReference)
        return GroupCellImpl::ExecCommand(command, out);
    std::vector<UniqueMetaObjectKey> objects;
    std::vector<UniqueMetaObjectKey> without;
    GetItem().SplitByHypertext(objects, without, keys::name);
    objects.insert(objects.end(), without.begin(), without.end());
    InsertExtendedReference(*m_data, objects, out);
    return true;
}

std::set<int> NameGroupCellImpl::GetAvailableCommands() {
    std::set<int> available = GroupCellImpl::GetAvailableCommands();
    AddBilletCommand(*m_data, m_key, available);
    AddHighlightCommand(GetItem(), available);
    if (CanInsertExtendedReference())
        available.insert(commands::insertExtendedReference);
    AddRemoveCommand(GetItem(), available);
    return available;
}

} // namespace productTree
