#include "platform/services/UserDecisions.h"

#include "platform/services/SlotStack.h"

#include <utility>

namespace platform {

namespace {

SlotStack<IUserDecisions> s_decisions;

template <class T>
std::optional<T> TakeFirst(std::deque<std::optional<T>>& script) {
    if (script.empty())
        return std::nullopt;
    std::optional<T> answer;
    answer.swap(script.front());
    script.pop_front();
    return answer;
}

} // namespace

IUserDecisions* GetUserDecisions() {
    return s_decisions.GetCurrent();
}

UserDecisionsSlot::UserDecisionsSlot(IUserDecisions& decisions) : m_decisions(decisions) {
    s_decisions.Add(decisions);
}

UserDecisionsSlot::~UserDecisionsSlot() {
    s_decisions.Remove(m_decisions);
}

void UserDecisionsSlot::MakeCurrent() {
    s_decisions.MakeCurrent(m_decisions);
}

std::optional<std::size_t> ScriptedDecisions::Ask(const Question& question) {
    m_questions.push_back(question);
    return TakeFirst(m_buttons);
}

std::optional<std::filesystem::path> ScriptedDecisions::ChooseFile(const FileRequest& request) {
    m_fileRequests.push_back(request);
    return TakeFirst(m_files);
}

std::vector<std::filesystem::path> ScriptedDecisions::ChooseFiles(const FileRequest& request) {
    m_fileRequests.push_back(request);
    return TakeFirst(m_severalFiles).value_or(std::vector<std::filesystem::path>());
}

std::optional<SharedText> ScriptedDecisions::EnterText(const TextRequest& request) {
    m_textRequests.push_back(request);
    return TakeFirst(m_texts);
}

std::optional<UniqueMetaObjectKey> ScriptedDecisions::ChooseObject(const ObjectRequest& request) {
    m_objectRequests.push_back(request);
    return TakeFirst(m_objects);
}

std::optional<PropertyChoice> ScriptedDecisions::ChooseProperty(const PropertyRequest& request) {
    m_propertyRequests.push_back(request);
    return TakeFirst(m_properties);
}

std::optional<SectionDecision> ScriptedDecisions::ChooseSection(const SectionRequest& request) {
    m_sectionRequests.push_back(request);
    return TakeFirst(m_sections);
}

std::optional<RoughnessDecision>
ScriptedDecisions::ChooseRoughness(const RoughnessRequest& request) {
    m_roughnessRequests.push_back(request);
    return TakeFirst(m_roughness);
}

std::optional<MaterialDecision> ScriptedDecisions::ChooseMaterial(const MaterialRequest& request) {
    m_materialRequests.push_back(request);
    return TakeFirst(m_materials);
}

std::optional<std::vector<bool>> ScriptedDecisions::ChooseSeveral(const ListRequest& request) {
    m_listRequests.push_back(request);
    return TakeFirst(m_lines);
}

std::optional<std::vector<ItemPropertyInput>>
ScriptedDecisions::EditItemProperties(const ItemPropertiesRequest& request) {
    m_itemPropertiesRequests.push_back(request);
    return TakeFirst(m_itemProperties);
}

std::optional<DocumentTexts> ScriptedDecisions::EditDocument(const DocumentRequest& request) {
    m_documentRequests.push_back(request);
    return TakeFirst(m_documents);
}

void ScriptedDecisions::Tell(const SharedText& /*title*/, const SharedText& text) {
    m_messages.push_back(text);
}

} // namespace platform
