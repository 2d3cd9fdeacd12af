// Wide text as UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// What is no code point, such as half of a surrogate pair, becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);
void AppendUtf8(std::string& out, wchar_t character);

} // namespace platform
