#include "desktop/store/Texts.h"

#include <cstdint>

namespace desktop::store {

std::wstring ToWide(std::string_view utf8) {
    std::wstring wide;
    wide.reserve(utf8.size());
    std::uint32_t code = 0;
    int following = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (following > 0) {
            code = code << 6U | (byte & 0x3FU);
            --following;
        } else {
            following = byte < 0xC0 ? 0 : byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
            code = following == 0 ? byte : byte & (0x3FU >> following);
        }
        if (following == 0)
            wide += static_cast<wchar_t>(code);
    }
    return wide;
}

std::string ToUtf8(std::wstring_view wide) {
    std::string utf8;
    utf8.reserve(wide.size());
    const auto append = [&utf8](std::uint32_t byte) { utf8 += static_cast<char>(byte); };
    for (const wchar_t c : wide) {
        auto code = static_cast<char32_t>(c);
        if ((code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF)
            code = 0xFFFD;
        if (code < 0x80) {
            append(code);
            continue;
        }
        if (code < 0x800) {
            append(0xC0U | code >> 6U);
        } else {
            if (code < 0x10000) {
                append(0xE0U | code >> 12U);
            } else {
                append(0xF0U | code >> 18U);
                append(0x80U | (code >> 12U & 0x3FU));
            }
            append(0x80U | (code >> 6U & 0x3FU));
        }
        append(0x80U | (code & 0x3FU));
    }
    return utf8;
}

} // namespace desktop::store
