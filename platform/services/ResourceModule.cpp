#include "host/ResourceModule.h"

#include "host/SPCSection.h"
#include "platform/services/Resources.h"

#include <algorithm>
#include <map>
#include <optional>
#include <unordered_map>

namespace platform {

namespace {

using Texts = std::unordered_map<unsigned, SharedText>;
using ModuleTexts = std::map<std::string, Texts, std::less<>>;
using ModuleRows = std::map<std::string, std::span<const ResourceRow>, std::less<>>;

std::optional<unsigned> ParseId(std::wstring_view digits) {
    unsigned id = 0;
    for (const wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9')
            return std::nullopt;
        id = id * 10 + static_cast<unsigned>(digit - L'0');
    }
    return digits.empty() ? std::nullopt : std::optional(id);
}

/// The text behind the id and the name, which is there for the reader of the file.
void ReadTextLine(std::wstring_view line, Texts& texts) {
    const std::size_t nameBegin = line.find(L'\t');
    if (nameBegin == std::wstring_view::npos)
        return;
    const std::size_t textBegin = line.find(L'\t', nameBegin + 1);
    const std::optional<unsigned> id = ParseId(line.substr(0, nameBegin));
    if (id && textBegin != std::wstring_view::npos)
        texts.emplace(*id, std::wstring(line.substr(textBegin + 1)));
}

ModuleTexts ReadTexts(std::wstring_view file) {
    ModuleTexts modules;
    Texts* texts = nullptr;
    while (!file.empty()) {
        const std::size_t end = std::min(file.find(L'\n'), file.size());
        const std::wstring_view line = file.substr(0, end);
        file.remove_prefix(std::min(end + 1, file.size()));
        if (line.empty() || line.front() == L'#')
            continue;
        if (line.front() == L'[' && line.back() == L']') {
            texts = &modules[std::string(line.begin() + 1, line.end() - 1)];
            continue;
        }
        if (texts)
            ReadTextLine(line, *texts);
    }
    return modules;
}

// Both live on until the process ends: the handles of modules are static objects of theirs.
const ModuleTexts& GetAllTexts() {
    static const ModuleTexts& texts = *new ModuleTexts(ReadTexts(c_resourceTexts));
    return texts;
}

ModuleRows& GetAllRows() {
    static ModuleRows& rows = *new ModuleRows;
    return rows;
}

} // namespace

const ResourceRow* FindResource(std::string_view moduleName, const ResourceName& resource) {
    const auto found = GetAllRows().find(moduleName);
    if (found == GetAllRows().end())
        return nullptr;
    const auto row =
        std::find_if(found->second.begin(), found->second.end(), [&](const ResourceRow& candidate) {
            return candidate.name == resource.name && candidate.kind == resource.kind;
        });
    return row == found->second.end() ? nullptr : &*row;
}

SharedText GetModuleText(std::string_view moduleName, unsigned id) {
    const auto texts = GetAllTexts().find(moduleName);
    if (texts == GetAllTexts().end())
        return {};
    const auto found = texts->second.find(id);
    return found == texts->second.end() ? SharedText() : found->second;
}

} // namespace platform

ResourceModuleHandle::ResourceModuleHandle(std::string_view moduleName,
                                           std::span<const ResourceRow> rows)
    : m_name(moduleName) {
    platform::GetAllRows().insert_or_assign(m_name, rows);
}

SharedText ResourceModuleHandle::GetText(unsigned id) const {
    return platform::GetModuleText(m_name, id);
}

SharedText GetDefaultSectionNumbName(int number) {
    return number < 0
               ? SharedText()
               : platform::GetModuleText(platform::c_hostModule, static_cast<unsigned>(number));
}
