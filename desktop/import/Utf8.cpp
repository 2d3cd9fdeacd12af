#include "desktop/import/Utf8.h"

#include <algorithm>
#include <array>

namespace desktop::step {

namespace {

struct Form {
    unsigned mask, lead;
    std::size_t length;
    /// Smaller codes have a shorter form.
    std::uint32_t smallest;
};

constexpr std::array forms{
    Form{0x80, 0x00, 1, 0},
    Form{0xE0, 0xC0, 2, 0x80},
    Form{0xF0, 0xE0, 3, 0x800},
    Form{0xF8, 0xF0, 4, 0x10000},
};

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
        std::ranges::find_if(forms, [&](const Form& f) { return (lead & f.mask) == f.lead; });
    if (form == forms.end() || text.size() < form->length)
        return std::nullopt;
    const std::string_view rest = text.substr(1, form->length - 1);
    if (!std::ranges::all_of(rest, IsContinuation))
        return std::nullopt;
    std::uint32_t code = lead & ~form->mask;
    for (const char c : rest)
        code = code << 6 | (Byte(c) & 0x3F);
    if (code < form->smallest || !IsUnicode(code))
        return std::nullopt;
    text.remove_prefix(form->length);
    return static_cast<wchar_t>(code);
}

void AddUtf8(std::string& text, std::uint32_t code) {
    const auto form = std::ranges::find_if(forms.rbegin(), forms.rend(),
                                           [&](const Form& f) { return code >= f.smallest; });
    std::size_t bits = 6 * (form->length - 1);
    text += static_cast<char>(form->lead | code >> bits);
    while (bits > 0) {
        bits -= 6;
        text += static_cast<char>(0x80 | (code >> bits & 0x3F));
    }
}

} // namespace

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

std::wstring FromUtf8OrLatin1(std::string_view text) {
    if (std::optional<std::wstring> unicode = FromUtf8(text))
        return *std::move(unicode);
    std::wstring wide(text.size(), L'\0');
    std::ranges::transform(text, wide.begin(),
                           [](char c) { return static_cast<wchar_t>(Byte(c)); });
    return wide;
}

std::string ToUtf8(std::wstring_view text) {
    std::string narrow;
    for (const wchar_t c : text) {
        const auto code = static_cast<char32_t>(c);
        AddUtf8(narrow, IsUnicode(code) ? code : 0xFFFD);
    }
    return narrow;
}

std::string Quote(std::wstring_view text) {
    static constexpr std::size_t longest = 80;
    std::wstring line(text.substr(0, longest));
    std::ranges::replace_if(
        line, [](wchar_t c) { return c < 0x20 || c == 0x7F; }, L' ');
    return '"' + ToUtf8(line) + (text.size() > longest ? "...\"" : "\"");
}

} // namespace desktop::step
