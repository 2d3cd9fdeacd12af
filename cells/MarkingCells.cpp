#include "cells/MarkingCells.h"

#include "cells/CommonIcon.h"
#include "host/VariantMarking.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

namespace productTree {

void MarkingCellImpl::InitEditor() {}

void MarkingCellImpl::Update() {
    ResetCaches();
    const PropValue value = m_data->GetValue(MakeRef());
    VariantMarking marking;
    marking.FromPropertyTree(value.GetPropertyTree());
    const SharedText text = GetItem().SetMarkingToRow(marking);

    if (const auto editor = m_row->GetMarkingEditor()) {
        const bool hypertext = HasHypertext();
        editor->SetHypertext(hypertext);
        if (hypertext)
            editor->SetLinkStyle(GetLinkStyle());
        editor->SetReadOnly(!IsEditable());
        editor->SetIcon(GetSourceIcon());
    }
    m_value = SimplePropVal(text);
    m_propValue = value;
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
    const SharedText text = GetItem().SetMarkingToRow(marking);
    m_propValue = marking.GetPropValue();

    if (const auto editor = m_row->GetMarkingEditor()) {
        editor->SetReadOnly(!IsEditable());
        const bool hypertext = HasHypertext();
        editor->SetHypertext(hypertext);
        if (hypertext)
            editor->SetLinkStyle(GetLinkStyle());
        editor->SetIcon(icon.Get());
    }
    m_value = SimplePropVal(text);
}

} // namespace productTree
