#include "host/NumberTexts.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace orvex::sys {

namespace {

/// The largest double has so many digits before the point.
constexpr std::size_t c_maxWholeDigits = 310;
/// The smallest one is exact with so many behind it.
constexpr int c_maxDigits = 1074;

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

} // namespace orvex::sys
