#include "platform/product/edits/DocumentChanges.h"

#include "host/ProductProperties.h"
#include "platform/product/model/DocumentNames.h"
#include "platform/product/model/PropertyNumbers.h"

#include <algorithm>
#include <boost/property_tree/ptree.hpp>

namespace platform {

namespace {

auto FindFile(std::vector<DocumentRecord>& documents, const std::string& file) {
    return std::ranges::find(documents, file, &DocumentRecord::file);
}

/// Only one document has it.
void SetFlag(std::vector<DocumentRecord>& documents, bool DocumentRecord::*flag,
             const std::string& file) {
    for (DocumentRecord& document : documents)
        document.*flag = document.file == file;
}

PropValue TextValue(const SharedText& text) {
    return text.IsEmpty() ? PropValue() : PropValue(SimplePropVal(text));
}

bool Give(const EditRules& rules, const PartEntry& object, unsigned long number, PropValue value,
          ValuePlan& plan) {
    if (ValueChange(object.key, number, std::move(value)).Plan(rules, plan))
        return true;
    plan.Refuse(ProductText::RefusedFollow);
    return false;
}

/// What the document does not say the object keeps.
bool GiveNames(const EditRules& rules, const PartEntry& object, const DocumentRecord& document,
               ValuePlan& plan) {
    return (document.name.IsEmpty() ||
            Give(rules, object, ProductProperties::nameId, TextValue(document.name), plan)) &&
           (document.marking.IsEmpty() || Give(rules, object, ProductProperties::markingId,
                                               document.marking.GetPropValue(), plan));
}

bool HasNames(const DocumentRecord& document) {
    return !document.name.IsEmpty() || !document.marking.IsEmpty();
}

} // namespace

bool HasFormatOf(const ShownValues& shown, const PartEntry& object,
                 const DocumentRecord& document) {
    return document.formatUsed && shown.Get(object, number::format).to_wstring() == document.format;
}

bool IsNamedBy(const ShownValues& shown, const PartEntry& object, const DocumentRecord& document) {
    if (!document.isSource || !HasNames(document))
        return false;
    VariantMarking marking;
    marking.FromPropertyTree(shown.Get(object, ProductProperties::markingId).GetPropertyTree());
    return (document.name.IsEmpty() ||
            shown.Get(object, ProductProperties::nameId).to_wstring() == document.name) &&
           (document.marking.IsEmpty() || marking == document.marking);
}

bool DocumentChange::Plan(const EditRules& rules, ValuePlan& plan) const {
    const PartEntry* const object = FindObject(rules);
    if (!object)
        return false;
    std::optional<Documents> documents =
        ChangeList(rules, *object, plan.GetDocuments(*object), plan);
    if (!documents)
        return false;
    plan.SetDocuments(*object, *std::move(documents));
    return true;
}

using Documents = std::vector<DocumentRecord>;

std::optional<Documents> DocumentsAddition::ChangeList(const EditRules&, const PartEntry&,
                                                       Documents documents, ValuePlan&) const {
    for (const DocumentRecord& document : m_documents) {
        if (FindFile(documents, document.file) == documents.end())
            documents.push_back(document);
    }
    return documents;
}

std::optional<Documents> DocumentRemoval::ChangeList(const EditRules&, const PartEntry&,
                                                     Documents documents, ValuePlan&) const {
    const auto found = FindFile(documents, m_file);
    if (found == documents.end())
        return std::nullopt;
    documents.erase(found);
    return documents;
}

std::optional<Documents> DocumentFormatChange::ChangeList(const EditRules& rules,
                                                          const PartEntry& object,
                                                          Documents documents,
                                                          ValuePlan& plan) const {
    const auto found = FindFile(documents, m_file);
    if (found == documents.end() || (m_isUsed && found->format.IsEmpty()))
        return std::nullopt;
    // A format that the object has from elsewhere stays.
    const bool isGiven = m_isUsed || HasFormatOf(plan.GetShown(), object, *found);
    PropValue format = m_isUsed ? TextValue(found->format) : PropValue();
    if (isGiven && !Give(rules, object, number::format, std::move(format), plan))
        return std::nullopt;
    if (m_isUsed)
        SetFlag(documents, &DocumentRecord::formatUsed, m_file);
    else
        found->formatUsed = false;
    return documents;
}

std::optional<Documents> DocumentSourceChange::ChangeList(const EditRules& rules,
                                                          const PartEntry& object,
                                                          Documents documents,
                                                          ValuePlan& plan) const {
    const auto found = FindFile(documents, m_file);
    const auto isFixed = [&](const DocumentRecord& document) {
        return document.sourceLocked && (document.isSource || document.file == m_file);
    };
    if (found == documents.end() || std::ranges::any_of(documents, isFixed))
        return std::nullopt;
    if (m_isSource && (!HasNames(*found) || !GiveNames(rules, object, *found, plan)))
        return std::nullopt;
    if (m_isSource)
        SetFlag(documents, &DocumentRecord::isSource, m_file);
    else
        found->isSource = false;
    return documents;
}

SharedText DocumentTextsChange::MakeStepName() const {
    return GetText(ProductText::DocumentEdit, {FileNameOf(m_document.file)});
}

std::optional<Documents> DocumentTextsChange::ChangeList(const EditRules& rules,
                                                         const PartEntry& object,
                                                         Documents documents,
                                                         ValuePlan& plan) const {
    const auto found = FindFile(documents, m_document.file);
    if (found == documents.end())
        return std::nullopt;
    const bool givesNames = IsNamedBy(plan.GetShown(), object, *found);
    const bool givesFormat = HasFormatOf(plan.GetShown(), object, *found);
    found->name = m_document.name;
    found->marking = m_document.marking;
    found->format = m_document.format;
    found->comment = m_document.comment;
    // What it does not say any more stays the object's own.
    found->isSource &= HasNames(*found);
    found->formatUsed &= !found->format.IsEmpty();
    if (givesNames && !GiveNames(rules, object, *found, plan))
        return std::nullopt;
    if (givesFormat && found->formatUsed &&
        !Give(rules, object, number::format, TextValue(found->format), plan))
        return std::nullopt;
    return documents;
}

} // namespace platform
