#include "platform/services/UserDecisions.h"

namespace platform {

namespace {

template <class T>
std::optional<T> TakeFirst(std::deque<std::optional<T>>& script) {
    if (script.empty())
        return std::nullopt;
    std::optional<T> answer = std::move(script.front());
    script.pop_front();
    return answer;
}

} // namespace

std::optional<std::size_t> ScriptedDecisions::Ask(const Question& question) {
    m_questions.push_back(question);
    return TakeFirst(m_buttons);
}

std::optional<std::filesystem::path> ScriptedDecisions::ChooseFile(const FileRequest& request) {
    m_fileRequests.push_back(request);
    return TakeFirst(m_files);
}

void ScriptedDecisions::Tell(const SharedText& /*title*/, const SharedText& text) {
    m_messages.push_back(text);
}

} // namespace platform
