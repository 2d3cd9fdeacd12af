#include "desktop/import/StandardParts.h"

#include <algorithm>
#include <array>

namespace desktop::step {

namespace {

struct StandardsBody {
    std::wstring_view name;
    /// Its standards are sorted into classes of a letter before the number.
    bool hasClasses;
    /// Of its numbers at least: a short name with a short number is mostly something else.
    std::size_t digits;
};

// clang-format off
/// Longer names stand before those that they begin with.
constexpr std::array bodies{
    StandardsBody{L"ISO",  false, 1},
    StandardsBody{L"DIN",  false, 1},
    StandardsBody{L"EN",   false, 3},
    StandardsBody{L"ANSI", true,  1},
    StandardsBody{L"ASME", true,  1},
    StandardsBody{L"JIS",  true,  1},
    StandardsBody{L"GB/T", false, 2},
    StandardsBody{L"GB",   false, 2},
    StandardsBody{L"BS",   false, 2},
    StandardsBody{L"GOST", false, 2},
    StandardsBody{L"\u0413\u041E\u0421\u0422", false, 2},
};
// clang-format on

constexpr std::wstring_view separators = L" _-./:,\u00A0\u3000";

constexpr wchar_t ToUpper(wchar_t c) {
    return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

bool BeginsWith(std::wstring_view text, std::wstring_view prefix) {
    return text.size() >= prefix.size() &&
           std::ranges::equal(text.substr(0, prefix.size()), prefix, {}, ToUpper);
}

std::wstring_view WithoutSeparators(std::wstring_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(separators), text.size()));
    return text;
}

/// A letter of any script, or a digit.
bool IsOfWord(wchar_t c) {
    const wchar_t upper = ToUpper(c);
    const bool isPlainLetter = upper >= L'A' && upper <= L'Z';
    const bool isOther = c >= 0x80 && separators.find(c) == std::wstring_view::npos;
    return IsDigit(c) || isPlainLetter || isOther;
}

/// So many digits at least, at the end of a word.
bool IsNumber(std::wstring_view text, std::size_t digits) {
    const auto end = std::ranges::find_if_not(text, IsDigit);
    return static_cast<std::size_t>(end - text.begin()) >= digits &&
           (end == text.end() || !IsOfWord(*end));
}

bool IsNumberInClass(std::wstring_view text) {
    if (text.empty() || ToUpper(text.front()) < L'A' || ToUpper(text.front()) > L'Z')
        return false;
    return IsNumber(WithoutSeparators(text.substr(1)), 1);
}

bool BeginsWithStandard(std::wstring_view text) {
    while (true) {
        const auto body = std::ranges::find_if(
            bodies, [&](const StandardsBody& known) { return BeginsWith(text, known.name); });
        if (body == bodies.end())
            return false;
        text.remove_prefix(body->name.size());
        const std::wstring_view number = WithoutSeparators(text);
        if (IsNumber(number, body->digits))
            return true;
        const bool isSeparated = number.size() != text.size();
        if (body->hasClasses && isSeparated && IsNumberInClass(number))
            return true;
        // Another body may follow, but not in the middle of a word.
        if (!isSeparated)
            return false;
        text = number;
    }
}

} // namespace

bool NamesStandard(std::wstring_view text) {
    bool isInWord = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool begins = !isInWord && IsOfWord(text[i]);
        if (begins && BeginsWithStandard(text.substr(i)))
            return true;
        isInWord = IsOfWord(text[i]);
    }
    return false;
}

} // namespace desktop::step
