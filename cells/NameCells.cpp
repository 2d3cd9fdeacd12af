#include "cells/NameCells.h"

#include "cells/CommonIcon.h"
#include "columns/PropertyKeys.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

namespace productTree {

void NameCellImpl::InitEditor() {}

void NameCellImpl::Update() {
    ResetCaches();
    m_row->SetSectionNameStyle(false);
    m_row->SetSectionRowStyle(false);

    const SharedText text = m_data->GetValue(MakeRef()).to_wstring();
    m_row->SetName(text, GetItem().GetDisplayName(text), keys::name);
    const bool hypertext = HasHypertext();
    m_row->SetNameHypertext(hypertext);
    if (hypertext)
        m_row->SetNameLinkStyle(GetLinkStyle());
    m_row->SetNameEditable(IsEditable());
    m_row->SetNameIcon(GetSourceIcon());
    SetShownValue(SimplePropVal(text));
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
    const std::size_t count = m_row->GetChildCount();
    for (std::size_t i = 0; i < count; ++i) {
        const ITreeTableRow* child = m_row->GetChild(i);
        if (!child)
            continue;
        if (equal) {
            const SharedText name = child->GetNameText();
            shown = child->GetNameDisplay();
            if (first)
                raw = name;
            equal = name == raw;
            first = false;
        }
        icon.Add(child->GetNameIcon());
    }

    const std::wstring suffix = GetItem().GetCountSuffix(1);
    if (equal && !shown.IsEmpty()) {
        shown = shown.Str() + L' ' + suffix;
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

} // namespace productTree
