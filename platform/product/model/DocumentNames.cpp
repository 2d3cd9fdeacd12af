#include "platform/product/model/DocumentNames.h"

#include "platform/values/Utf8.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace platform {

namespace {

/// As systems have it.
constexpr std::size_t c_maxPathSize = 4096;
constexpr std::size_t c_maxExtensionSize = 5;

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// The number at the end of "AB.101" is no extension, nor is the word behind "No. 5".
bool IsExtension(std::wstring_view text) {
    return !text.empty() && text.size() <= c_maxExtensionSize &&
           !std::ranges::all_of(text, IsDigit) && text.find(L' ') == std::wstring_view::npos;
}

std::wstring_view StemOf(std::wstring_view name) {
    const std::size_t dot = name.rfind(L'.');
    const bool isCut =
        dot != std::wstring_view::npos && dot > 0 && IsExtension(name.substr(dot + 1));
    return isCut ? name.substr(0, dot) : name;
}

std::wstring_view Trim(std::wstring_view text, std::wstring_view characters) {
    const std::size_t first = std::min(text.find_first_not_of(characters), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(characters) + 1);
}

} // namespace

bool IsSoundFile(const std::string& path) {
    return !path.empty() && path.size() <= c_maxPathSize && path.find('\0') == std::string::npos &&
           FromUtf8(path).has_value();
}

SharedText FileNameOf(const std::string& path) {
    return FromUtf8(path.substr(path.rfind('/') + 1)).value_or(std::wstring());
}

std::string PathFrom(const std::filesystem::path& folder, const std::string& path) {
    const std::filesystem::path relative = std::filesystem::path(path).lexically_relative(folder);
    const bool isBelow = !folder.empty() && !relative.empty() && *relative.begin() != "..";
    return isBelow ? relative.native() : path;
}

std::string PathIn(const std::filesystem::path& folder, const std::string& stored) {
    return folder.empty() || stored.empty() ? stored
                                            : (folder / stored).lexically_normal().native();
}

DocumentRecord GuessDocument(std::string path) {
    const SharedText fileName = FileNameOf(path);
    const std::wstring_view stem = Trim(StemOf(fileName.Str()), L" ");
    DocumentRecord document;
    document.file = std::move(path);
    const std::size_t end = std::min(stem.find_first_of(L" _"), stem.size());
    const std::wstring_view first = stem.substr(0, end);
    if (!std::ranges::any_of(first, IsDigit)) {
        document.name = std::wstring(stem);
        return document;
    }
    document.marking.Parse(std::wstring(first));
    document.name = std::wstring(Trim(stem.substr(end), L" _-\u2013\u2014"));
    return document;
}

} // namespace platform
