// How anything asks the user to decide: a question with buttons, a file to open or to write, a
// message to take note of. The program answers with real dialogs, a test with a script. Code that
// needs a decision is given an IUserDecisions and knows no dialog.
#pragma once

#include "host/SharedText.h"

#include <cstddef>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace platform {

struct Question {
    SharedText title;
    SharedText text;
    /// Captions, from the answer that is the usual one on.
    std::vector<SharedText> buttons;
};

struct FileRequest {
    SharedText title;
    /// File name patterns, for instance L"*.step"; empty: any file.
    std::vector<std::wstring> patterns;
    /// Where to begin; empty: wherever the user was last.
    std::filesystem::path start;
    /// The file is to be written; the user has agreed if it is there already.
    bool forWriting = false;
};

class IUserDecisions {
public:
    virtual ~IUserDecisions() = default;

    /// The place of the chosen button; no value when the user has closed the question.
    virtual std::optional<std::size_t> Ask(const Question& question) = 0;
    /// No value when the user has chosen nothing.
    virtual std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) = 0;
    /// Returns when the user has taken note.
    virtual void Tell(const SharedText& title, const SharedText& text) = 0;
};

/// Answers from a script, in its order, and keeps what it was asked. When the script has run out
/// every question is closed without an answer.
class ScriptedDecisions final : public IUserDecisions {
public:
    void AnswerNext(std::optional<std::size_t> button) { m_buttons.push_back(button); }
    void ChooseNext(std::optional<std::filesystem::path> file) {
        m_files.push_back(std::move(file));
    }

    const std::vector<Question>& GetQuestions() const { return m_questions; }
    const std::vector<FileRequest>& GetFileRequests() const { return m_fileRequests; }
    const std::vector<SharedText>& GetMessages() const { return m_messages; }

    std::optional<std::size_t> Ask(const Question& question) override;
    std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) override;
    void Tell(const SharedText& title, const SharedText& text) override;

private:
    std::deque<std::optional<std::size_t>> m_buttons;
    std::deque<std::optional<std::filesystem::path>> m_files;
    std::vector<Question> m_questions;
    std::vector<FileRequest> m_fileRequests;
    std::vector<SharedText> m_messages;
};

} // namespace platform
