// Text between UTF-8, which files, options and messages are written in, and its wide form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// A code that stands for a character by itself: in range and no half of a surrogate pair.
constexpr bool IsCodePoint(char32_t code) {
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

/// What is no code point becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);
void AppendUtf8(std::string& out, wchar_t character);

/// No value: not valid UTF-8.
std::optional<std::wstring> FromUtf8(std::string_view text);

} // namespace platform
