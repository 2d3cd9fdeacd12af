#include "platform/values/Utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

namespace platform {

namespace {

struct Form {
    unsigned mask, lead;
    std::size_t length;
    /// Smaller codes have a shorter form.
    char32_t smallest;
};

constexpr std::array c_forms{
    Form{0x80, 0x00, 1, 0},
    Form{0xE0, 0xC0, 2, 0x80},
    Form{0xF0, 0xE0, 3, 0x800},
    Form{0xF8, 0xF0, 4, 0x10000},
};
constexpr char32_t c_replacement = 0xFFFD;

unsigned Byte(char c) {
    return static_cast<unsigned char>(c);
}

bool IsContinuation(char c) {
    return (Byte(c) & 0xC0) == 0x80;
}

/// Takes the first character off `text`; no value where it is not a valid one.
std::optional<wchar_t> TakeCharacter(std::string_view& text) {
    const unsigned lead = Byte(text.front());
    const auto form =
        std::ranges::find_if(c_forms, [&](const Form& f) { return (lead & f.mask) == f.lead; });
    if (form == c_forms.end() || text.size() < form->length)
        return std::nullopt;
    const std::string_view rest = text.substr(1, form->length - 1);
    if (!std::ranges::all_of(rest, IsContinuation))
        return std::nullopt;
    char32_t code = lead & ~form->mask;
    for (const char c : rest)
        code = code << 6 | (Byte(c) & 0x3F);
    if (code < form->smallest || !IsCodePoint(code))
        return std::nullopt;
    text.remove_prefix(form->length);
    return static_cast<wchar_t>(code);
}

} // namespace

void AppendUtf8(std::string& out, wchar_t character) {
    auto code = static_cast<char32_t>(character);
    if (!IsCodePoint(code))
        code = c_replacement;
    const auto form = std::find_if(c_forms.rbegin(), c_forms.rend(),
                                   [&](const Form& f) { return code >= f.smallest; });
    std::size_t bits = 6 * (form->length - 1);
    out += static_cast<char>(form->lead | code >> bits);
    while (bits > 0) {
        bits -= 6;
        out += static_cast<char>(0x80 | (code >> bits & 0x3F));
    }
}

std::string ToUtf8(std::wstring_view text) {
    std::string out;
    out.reserve(text.size());
    for (const wchar_t character : text)
        AppendUtf8(out, character);
    return out;
}

std::optional<std::wstring> FromUtf8(std::string_view text) {
    std::wstring wide;
    wide.reserve(text.size());
    while (!text.empty()) {
        const std::optional<wchar_t> character = TakeCharacter(text);
        if (!character)
            return std::nullopt;
        wide += *character;
    }
    return wide;
}

} // namespace platform
