#include "host/SimplePropVal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

std::wstring Widen(const char* begin, const char* end) {
    return std::wstring(begin, end);
}

std::wstring FormatInt(std::int64_t value) {
    std::array<char, 24> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return Widen(buffer.data(), result.ptr);
}

std::wstring FormatDouble(double value) {
    if (value == 0)
        return L"0"; // also for the negative zero
    // Left to itself to_chars writes 100000 as 1e+05, which no user types.
    const double size = std::fabs(value);
    const bool plain = size >= 1e-7 && size < 1e21;
    std::array<char, 48> buffer;
    char* const end = buffer.data() + buffer.size();
    const auto result = plain ? std::to_chars(buffer.data(), end, value, std::chars_format::fixed)
                              : std::to_chars(buffer.data(), end, value);
    return Widen(buffer.data(), result.ptr);
}

void AppendPadded(std::wstring& text, std::int64_t value, std::size_t width) {
    const std::wstring digits = FormatInt(value < 0 ? -value : value);
    if (value < 0)
        text.push_back(L'-');
    if (digits.size() < width)
        text.append(width - digits.size(), L'0');
    text += digits;
}

constexpr std::int64_t c_secondsPerDay = 86400;

/// The date of a day, from 1970-01-01 on and back, in the Gregorian calendar. Counts in eras of 400
/// years that begin on a first of March, so that the leap day is the last of its year.
void AppendDate(std::wstring& text, std::int64_t day) {
    constexpr std::int64_t daysPerEra = 146097;
    const std::int64_t shifted = day + 719468;
    const std::int64_t era = (shifted >= 0 ? shifted : shifted - (daysPerEra - 1)) / daysPerEra;
    const std::int64_t dayOfEra = shifted - era * daysPerEra;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t marchMonth = (5 * dayOfYear + 2) / 153;
    const std::int64_t month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;

    AppendPadded(text, yearOfEra + era * 400 + (month <= 2 ? 1 : 0), 4);
    text.push_back(L'-');
    AppendPadded(text, month, 2);
    text.push_back(L'-');
    AppendPadded(text, dayOfYear - (153 * marchMonth + 2) / 5 + 1, 2);
}

std::wstring FormatDateTime(DateTime moment) {
    std::int64_t day = moment.seconds / c_secondsPerDay;
    std::int64_t second = moment.seconds % c_secondsPerDay;
    if (second < 0) {
        second += c_secondsPerDay;
        --day;
    }
    std::wstring text;
    AppendDate(text, day);
    text.push_back(L'T');
    AppendPadded(text, second / 3600, 2);
    text.push_back(L':');
    AppendPadded(text, second / 60 % 60, 2);
    text.push_back(L':');
    AppendPadded(text, second % 60, 2);
    text.push_back(L'Z');
    return text;
}

bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\u00A0';
}

/// The number that the whole text is; no value for anything else.
std::optional<double> ParseNumber(const std::wstring& text) {
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && IsBlank(text[begin]))
        ++begin;
    while (end > begin && IsBlank(text[end - 1]))
        --end;
    if (end - begin > 1 && text[begin] == L'+' && text[begin + 1] != L'-')
        ++begin;

    std::string narrow;
    narrow.reserve(end - begin);
    for (std::size_t i = begin; i < end; ++i) {
        // Anything but a plain number is kept out here, "inf" and "nan" among it.
        const wchar_t c = text[i];
        if (!(c >= L'0' && c <= L'9') && c != L'.' && c != L'-' && c != L'+' && c != L'e' &&
            c != L'E')
            return std::nullopt;
        narrow.push_back(static_cast<char>(c));
    }
    double value = 0;
    const auto result = std::from_chars(narrow.data(), narrow.data() + narrow.size(), value);
    if (result.ec != std::errc() || result.ptr != narrow.data() + narrow.size())
        return std::nullopt;
    return value;
}

int CutToInt(double value) {
    if (std::isnan(value))
        return 0;
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

} // namespace

SharedText SimplePropVal::to_wstring() const {
    return std::visit(
        Overloaded{[](std::monostate) { return SharedText(); },
                   [](const SharedText& text) { return text; },
                   [](bool value) { return SharedText(value ? L"1" : L"0"); },
                   [](int value) { return SharedText(FormatInt(value)); },
                   [](double value) { return SharedText(FormatDouble(value)); },
                   [](const DateTime& value) { return SharedText(FormatDateTime(value)); }},
        m_value);
}

int SimplePropVal::to_int() const {
    if (const int* const value = std::get_if<int>(&m_value))
        return *value;
    return CutToInt(to_double());
}

double SimplePropVal::to_double() const {
    return std::visit(
        Overloaded{[](std::monostate) { return 0.0; },
                   [](const SharedText& text) { return ParseNumber(text.Str()).value_or(0.0); },
                   [](bool value) { return value ? 1.0 : 0.0; },
                   [](int value) { return static_cast<double>(value); },
                   [](double value) { return value; },
                   [](const DateTime& value) { return static_cast<double>(value.seconds); }},
        m_value);
}

bool SimplePropVal::to_bool() const {
    return to_double() != 0;
}
