#include "host/NumberTexts.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

namespace orvex::sys {

namespace {

/// The largest double has so many digits before the point.
constexpr std::size_t c_maxWholeDigits = 310;
/// The smallest one is exact with so many behind it.
constexpr int c_maxDigits = 1074;

bool IsDigit(wchar_t letter) {
    return letter >= L'0' && letter <= L'9';
}

/// Digits with one point among them and maybe a sign before them.
bool IsDecimalFraction(std::wstring_view text) {
    if (!text.empty() && (text.front() == L'-' || text.front() == L'+'))
        text.remove_prefix(1);
    const std::size_t point = text.find(L'.');
    if (point == 0 || point == std::wstring_view::npos)
        return false;
    const auto isDigits = [](std::wstring_view part) { return std::ranges::all_of(part, IsDigit); };
    return isDigits(text.substr(0, point)) && isDigits(text.substr(point + 1));
}

} // namespace

SharedText ToString(double value, bool trimmed, int digits) {
    if (!std::isfinite(value))
        return {};
    const int precision = std::clamp(digits, 0, c_maxDigits);
    std::string text(c_maxWholeDigits + static_cast<std::size_t>(precision) + 2, '\0');
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value,
                                      std::chars_format::fixed, precision);
    text.resize(static_cast<std::size_t>(result.ptr - text.data()));
    if (trimmed && precision > 0) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    // What is left of a small negative number is no negative number any more.
    if (text.front() == '-' && text.find_first_not_of("-0.") == std::string::npos)
        text.erase(0, 1);
    return std::wstring(text.begin(), text.end());
}

SharedText TrimLastZeros(const SharedText& text) {
    const std::wstring& all = text.Str();
    const bool mayEnd = !all.empty() && (all.back() == L'0' || all.back() == L'.');
    if (!mayEnd || !IsDecimalFraction(all))
        return text;
    const std::size_t last = all.find_last_not_of(L'0');
    return all.substr(0, all[last] == L'.' ? last : last + 1);
}

} // namespace orvex::sys
