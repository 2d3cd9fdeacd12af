// Text between UTF-8, which options, messages and file names are written in, and its wide form.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace desktop::step {

/// A code that stands for a character by itself: in range and no surrogate.
constexpr bool IsUnicode(std::uint32_t code) {
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

/// No value: not valid UTF-8.
std::optional<std::wstring> FromUtf8(std::string_view text);

/// Bytes that are no valid UTF-8 as a whole are taken one by one.
std::wstring FromUtf8OrLatin1(std::string_view text);

std::string ToUtf8(std::wstring_view text);

/// The text in double quotes on one line for a message, cut where it is long.
std::string Quote(std::wstring_view text);

} // namespace desktop::step
