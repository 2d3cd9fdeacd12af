#include "platform/product/answers/MemoryProductState.h"
#include "platform/product/model/PropertyNumbers.h"
#include "platform/product/model/StyleSections.h"
#include "platform/services/UserDecisions.h"

namespace platform {

namespace {

SectionRequest MakeRequest(const std::vector<StyleSection>& sections, const PropValueRef& value,
                           bool nameLinked) {
    SectionRequest request;
    request.title = GetText(ProductText::SectionTitle);
    request.sections.reserve(sections.size());
    for (const StyleSection& entry : sections)
        request.sections.push_back({entry.section.name, entry.depth});
    SPCSection present;
    spc_section::FromPropertyTree(present, value.GetPropertyTree());
    request.present = FindSection(sections, present);
    request.linkText = GetText(ProductText::SectionNameLink);
    request.isNameLinked = nameLinked;
    return request;
}

} // namespace

SectionChoice MemoryProduct::EditSection(const PropValueRef& value, bool nameLinked) {
    if (!m_state->look->decisions)
        return {};
    const std::vector<StyleSection> sections = ListSections(m_state->model);
    if (sections.empty()) {
        m_state->look->decisions->Tell(GetText(ProductText::SectionTitle),
                                       GetText(ProductText::SectionNone));
        return {};
    }
    const std::optional<SectionDecision> decision =
        m_state->look->decisions->ChooseSection(MakeRequest(sections, value, nameLinked));
    if (!decision || decision->section >= sections.size())
        return {};
    return {true, decision->isNameLinked,
            spc_section::ToPropValue(sections[decision->section].section)};
}

ProductInfObjChangesResult MemoryProduct::MakeSectionNameChanges(const UniqueMetaObjectKey& key,
                                                                 bool linked) {
    return m_state->MakeSet(std::make_shared<NameLinkChange>(key, number::section, linked));
}

bool MemoryProduct::IsSortedBySection() const {
    return !m_state->model.style || m_state->model.style->sortBySections;
}

} // namespace platform
