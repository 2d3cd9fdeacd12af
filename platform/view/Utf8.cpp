#include "platform/view/Utf8.h"

#include <cstdint>

namespace platform {

namespace {

constexpr std::uint32_t c_replacement = 0xFFFD;

bool IsCodePoint(std::uint32_t code) {
    return code < 0xD800 || (code > 0xDFFF && code <= 0x10FFFF);
}

/// One byte of a sequence: the mark of its place and six bits of the code point, or fewer in front.
char Byte(std::uint32_t mark, std::uint32_t bits) {
    return static_cast<char>(static_cast<unsigned char>(mark | bits));
}

} // namespace

void AppendUtf8(std::string& out, wchar_t character) {
    auto code = static_cast<std::uint32_t>(character);
    if (!IsCodePoint(code))
        code = c_replacement;
    if (code < 0x80) {
        out += Byte(0, code);
        return;
    }
    if (code < 0x800) {
        out += Byte(0xC0, code >> 6);
    } else if (code < 0x10000) {
        out += Byte(0xE0, code >> 12);
        out += Byte(0x80, code >> 6 & 0x3F);
    } else {
        out += Byte(0xF0, code >> 18);
        out += Byte(0x80, code >> 12 & 0x3F);
        out += Byte(0x80, code >> 6 & 0x3F);
    }
    out += Byte(0x80, code & 0x3F);
}

std::string ToUtf8(std::wstring_view text) {
    std::string out;
    out.reserve(text.size());
    for (const wchar_t character : text)
        AppendUtf8(out, character);
    return out;
}

} // namespace platform
