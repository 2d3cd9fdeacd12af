#include "desktop/messages/MessageTexts.h"

#include "platform/values/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace desktop {

std::wstring FromUtf8OrLatin1(std::string_view text) {
    if (std::optional<std::wstring> unicode = platform::FromUtf8(text))
        return *std::move(unicode);
    std::wstring wide(text.size(), L'\0');
    std::ranges::transform(text, wide.begin(), [](char c) {
        return static_cast<wchar_t>(static_cast<unsigned char>(c));
    });
    return wide;
}

std::string Quote(std::wstring_view text) {
    static constexpr std::size_t longest = 80;
    std::wstring line(text.substr(0, longest));
    std::ranges::replace_if(
        line, [](wchar_t c) { return c < 0x20 || c == 0x7F; }, L' ');
    return '"' + platform::ToUtf8(line) + (text.size() > longest ? "...\"" : "\"");
}

} // namespace desktop
