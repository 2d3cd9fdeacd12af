#include "desktop/store/SourceTexts.h"

#include <charconv>
#include <cstdio>

namespace desktop::store {

namespace {

constexpr int c_hexadecimal = 16;

} // namespace

std::string FormatContents(const platform::ContentsMark& contents) {
    char hash[c_hexadecimal + 1];
    std::snprintf(hash, sizeof(hash), "%016llx", static_cast<unsigned long long>(contents.hash));
    return std::to_string(contents.size) + '-' + hash;
}

std::optional<platform::ContentsMark> ParseContents(std::string_view text) {
    platform::ContentsMark contents;
    const char* const end = text.data() + text.size();
    const auto size = std::from_chars(text.data(), end, contents.size);
    if (size.ec != std::errc() || size.ptr == end)
        return std::nullopt;
    const auto hash = std::from_chars(size.ptr + 1, end, contents.hash, c_hexadecimal);
    if (hash.ec != std::errc() || FormatContents(contents) != text)
        return std::nullopt;
    return contents;
}

} // namespace desktop::store
