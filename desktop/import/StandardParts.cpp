#include "desktop/import/StandardParts.h"

#include <algorithm>
#include <array>

namespace desktop::step {

namespace {

struct StandardsBody {
    std::wstring_view name;
    /// Its standards are sorted into classes of a letter before the number.
    bool hasClasses;
};

/// Longer names stand before those that they begin with.
constexpr std::array bodies{
    StandardsBody{L"ISO", false},  StandardsBody{L"DIN", false}, StandardsBody{L"EN", false},
    StandardsBody{L"ANSI", true},  StandardsBody{L"ASME", true}, StandardsBody{L"JIS", true},
    StandardsBody{L"GB/T", false}, StandardsBody{L"GB", false},  StandardsBody{L"BS", false},
};

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

bool IsNumber(std::wstring_view text) {
    return !text.empty() && IsDigit(text.front());
}

bool IsNumberInClass(std::wstring_view text) {
    if (text.empty() || ToUpper(text.front()) < L'A' || ToUpper(text.front()) > L'Z')
        return false;
    return IsNumber(WithoutSeparators(text.substr(1)));
}

} // namespace

bool BeginsWithStandard(std::wstring_view text) {
    text = WithoutSeparators(text);
    while (true) {
        const auto body = std::ranges::find_if(
            bodies, [&](const StandardsBody& known) { return BeginsWith(text, known.name); });
        if (body == bodies.end())
            return false;
        text.remove_prefix(body->name.size());
        const std::wstring_view number = WithoutSeparators(text);
        if (IsNumber(number))
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

} // namespace desktop::step
