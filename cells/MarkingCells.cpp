#include "cells/MarkingCells.h"

#include "cells/CellCommands.h"
#include "cells/CommonIcon.h"
#include "cells/RowCommands.h"
#include "host/VariantMarking.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

#include <utility>

namespace productTree {

namespace {

// Not FinishEdit: a designation from the book that is not taken leaves the row as it is, which
// nobody has typed into.
template <class MakeChanges>
void ChooseFromBook(IfProductTreeData& data, const ProductTreeItemImpl& item,
                    const MakeChanges& makeChanges, TreeActionResult& out) {
    out.action = TreeActionResult::Nothing;
    const VariantMarking marking = item.GetMarkingFromRow();
    const VariantMarking chosen = data.ChooseMarking(marking);
    if (chosen == marking)
        return;
    ProductInfObjChangesResult changes = makeChanges(chosen.GetPropValue());
    data.CommitChanges(changes);
    if (changes.IsExistsChanges())
        out.action = TreeActionResult::ValuesChanged;
}

void AddReferenceBook(ITreeTableRow& row, std::set<int>& available) {
    const auto editor = row.GetMarkingEditor();
    if (editor && !editor->IsChoiceLocked())
        available.insert(commands::referenceBook);
}

} // namespace

void MarkingCellImpl::InitEditor() {}

ProductInfObjChangesResult MarkingCellImpl::MakeChanges(const PropValue& value,
                                                        std::optional<int>) {
    if (!IsEditable() || !m_data->IsMarkingChangeAllowed(m_key, value))
        return {};
    return m_data->MakeValueChanges(MakeRef(), value);
}

void MarkingCellImpl::Update() {
    const PropertyReading reading = Read();
    const PropValue& value = reading.GetValue();
    const std::set<int> lockedParts = GetItem().GetLockedMarkingParts();
    const bool isCodeLocked = ProductTreeItemImpl::IsMarkingCodeIn(lockedParts);
    const auto editor = m_row->GetMarkingEditor();
    // The seven parts are taken out of a tree and put together again only where there is news.
    if (!value.SharesExtra(m_propValue) || isCodeLocked != m_isCodeLocked) {
        VariantMarking marking;
        marking.FromPropertyTree(value.GetPropertyTree());
        m_value = SimplePropVal(GetItem().SetMarkingToRow(marking));
        m_propValue = value;
        m_isCodeLocked = isCodeLocked;
    } else if (editor) {
        editor->SetLockedParts(lockedParts);
    }

    if (editor) {
        const bool hypertext = HasHypertext();
        editor->SetHypertext(hypertext);
        if (hypertext)
            editor->SetLinkStyle(GetLinkStyle());
        editor->SetReadOnly(!IsEditable());
        editor->SetIcon(GetSourceIcon());
    }
}

TreeActionResult MarkingCellImpl::OnValueEdited() {
    const PropValue value = GetItem().GetMarkingFromRow().GetPropValue();
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::Synchronise, [this] {
        VariantMarking marking;
        marking.FromPropertyTree(m_propValue.GetPropertyTree());
        GetItem().SetMarkingToRow(marking);
    });
}

bool MarkingCellImpl::ExecCommand(int command, TreeActionResult& out) {
    if (command != commands::referenceBook)
        return ProductTreeCellImpl::ExecCommand(command, out);
    ChooseFromBook(
        *m_data, GetItem(),
        [this](const PropValue& value) { return MakeChanges(value, std::nullopt); }, out);
    return true;
}

std::set<int> MarkingCellImpl::GetAvailableCommands() {
    std::set<int> available = ProductTreeCellImpl::GetAvailableCommands();
    if (IsEditable())
        AddReferenceBook(*m_row, available);
    AddObjectCommands(*m_data, m_key, available);
    AddHighlightCommand(GetItem(), available);
    AddRemoveCommand(GetItem(), available);
    return available;
}

void MarkingGroupCellImpl::InitEditor() {}

void MarkingGroupCellImpl::Update() {
    ResetCaches();
    boost::intrusive_ptr<IMarkingEditor> first;
    ProductTreeItemImpl* last = nullptr;
    bool equal = true;
    CommonIcon icon;
    GetItem().ForEachChildItem([&](ProductTreeItemImpl& child) {
        last = &child;
        const auto editor = child.GetRow().GetMarkingEditor();
        if (!editor)
            return true;
        if (!first)
            first = editor;
        else if (equal)
            equal = first->IsSameMarking(*editor);
        icon.Add(editor->GetIcon());
        return true;
    });

    const VariantMarking marking = equal && last ? last->GetMarkingFromRow() : VariantMarking();
    const std::set<int> lockedParts = GetItem().GetLockedMarkingParts();
    const bool isCodeLocked = ProductTreeItemImpl::IsMarkingCodeIn(lockedParts);
    const auto editor = m_row->GetMarkingEditor();
    const bool isShown =
        m_isShown && isCodeLocked == m_isCodeLocked && marking == GetItem().GetMarkingFromRow();
    if (!isShown) {
        m_value = SimplePropVal(GetItem().SetMarkingToRow(marking));
        m_marking = marking;
        m_isShown = true;
        m_isCodeLocked = isCodeLocked;
    } else if (editor) {
        editor->SetLockedParts(lockedParts);
    }

    if (editor) {
        editor->SetReadOnly(!IsEditable());
        const bool hypertext = HasHypertext();
        editor->SetHypertext(hypertext);
        if (hypertext)
            editor->SetLinkStyle(GetLinkStyle());
        editor->SetIcon(icon.Get());
    }
}

TreeActionResult MarkingGroupCellImpl::OnValueEdited() {
    const PropValue value = GetItem().GetMarkingFromRow().GetPropValue();
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::Synchronise,
                      [this] { GetItem().SetMarkingToRow(m_marking); });
}

bool MarkingGroupCellImpl::ExecCommand(int command, TreeActionResult& out) {
    if (command != commands::referenceBook)
        return GroupCellImpl::ExecCommand(command, out);
    ChooseFromBook(
        *m_data, GetItem(),
        [this](const PropValue& value) { return MakeChanges(value, std::nullopt); }, out);
    return true;
}

std::set<int> MarkingGroupCellImpl::GetAvailableCommands() {
    std::set<int> available = GroupCellImpl::GetAvailableCommands();
    if (IsEditable())
        AddReferenceBook(*m_row, available);
    AddBilletCommand(*m_data, m_key, available);
    AddHighlightCommand(GetItem(), available);
    AddRemoveCommand(GetItem(), available);
    return available;
}

} // namespace productTree
