#include "columns/headers/DesignationHeader.h"

#include "cells/ProductTreeCellImpl.h"
#include "host/TeDocCodeMaker.h"
#include "host/VariantMarking.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

namespace productTree {

namespace {

struct TextPart {
    std::optional<std::wstring> HeaderMarkingParts::*part;
    void (VariantMarking::*set)(SharedText);
};

struct DelimPart {
    std::optional<wchar_t> HeaderMarkingParts::*part;
    void (VariantMarking::*set)(wchar_t) noexcept;
};

constexpr TextPart c_texts[] = {
    {&HeaderMarkingParts::base, &VariantMarking::SetBase},
    {&HeaderMarkingParts::embodimentNum, &VariantMarking::SetEmbodimentNum},
    {&HeaderMarkingParts::additionalNum, &VariantMarking::SetAdditionalNum},
    {&HeaderMarkingParts::code, &VariantMarking::SetCode},
};

constexpr DelimPart c_delims[] = {
    {&HeaderMarkingParts::embodimentNumDelim, &VariantMarking::SetEmbodimentNumDelim},
    {&HeaderMarkingParts::additionalNumDelim, &VariantMarking::SetAdditionalNumDelim},
    {&HeaderMarkingParts::codeDelim, &VariantMarking::SetCodeDelim},
};

} // namespace

void DesignationHeaderImpl::InitEditor() {
    m_model->InitDesignationHeader(m_column);
}

TreeActionResult DesignationHeaderImpl::OnValueEdited() {
    const HeaderMarkingParts parts = m_model->GetHeaderMarking();
    VariantMarking marking;
    for (const TextPart& text : c_texts) {
        if (const auto& part = parts.*text.part)
            (marking.*text.set)(SharedText(*part));
    }
    for (const DelimPart& delim : c_delims) {
        if (const auto& part = parts.*delim.part)
            (marking.*delim.set)(*part);
    }
    TreeActionResult result = ApplyValueToSelection(marking.GetPropValue());
    if (result.action != TreeActionResult::Nothing)
        result.action = TreeActionResult::Synchronise;
    return result;
}

TreeActionResult DesignationHeaderImpl::EditDocCode() {
    SharedText text;
    TeDocCodeMaker::SetDocCode(text, true, false, nullptr);
    // Nothing was chosen: a cancelled dialog must not take the codes away.
    if (text.IsEmpty())
        return {};
    VariantMarking chosen;
    chosen.Parse(text);

    ProductInfObjChangesResult changes;
    ForEachRowToApply([&](const ProductTreeItemImpl& item, ProductTreeCellImpl& cell) {
        if (item.GetRow().IsSectionNameStyle() ||
            ProductTreeItemImpl::IsMarkingCodeIn(item.GetLockedMarkingParts()))
            return true;
        VariantMarking marking;
        marking.FromPropertyTree(cell.GetShownPropValue().GetPropertyTree());
        marking.SetCode(chosen.GetCode());
        MergeChanges(changes, cell.MakeChanges(marking.GetPropValue(), std::nullopt));
        return true;
    });
    m_data->CommitChanges(changes);
    TreeActionResult result;
    if (changes.IsExistsChanges())
        result.action = TreeActionResult::Synchronise;
    return result;
}

} // namespace productTree
