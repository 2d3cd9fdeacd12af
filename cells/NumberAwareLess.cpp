#include "cells/NumberAwareLess.h"

#include <charconv>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

namespace productTree {

namespace {

enum class Place { BeforeNumbers, Number, BehindNumbers };

bool IsDigit(wchar_t letter) {
    return letter >= L'0' && letter <= L'9';
}

std::size_t CountDigits(std::wstring_view text, std::size_t from) {
    std::size_t end = from;
    while (end < text.size() && IsDigit(text[end]))
        ++end;
    return end - from;
}

// How long the leading number is, without its exponent; 0 when there is none.
std::size_t FindNumberEnd(std::wstring_view text) {
    std::size_t at = !text.empty() && (text[0] == L'+' || text[0] == L'-') ? 1 : 0;
    const std::size_t whole = CountDigits(text, at);
    at += whole;
    if (at < text.size() && text[at] == L'.') {
        if (const std::size_t fraction = CountDigits(text, at + 1))
            return at + 1 + fraction;
    }
    return whole > 0 ? at : 0;
}

// The end of the exponent that follows the digits; `from` when there is none.
std::size_t FindExponentEnd(std::wstring_view text, std::size_t from) {
    std::size_t at = from;
    if (at >= text.size() || (text[at] != L'e' && text[at] != L'E'))
        return from;
    ++at;
    if (at < text.size() && (text[at] == L'+' || text[at] == L'-'))
        ++at;
    const std::size_t digits = CountDigits(text, at);
    return digits > 0 ? at + digits : from;
}

struct Number {
    double value = 0;
    /// More than a double holds: the value is infinite, or 0 where it is too near to it.
    bool isBeyond = false;
};

Number ToNumber(std::wstring_view text) {
    const bool isNegative = text.front() == L'-';
    if (isNegative || text.front() == L'+')
        text.remove_prefix(1);
    const std::string digits(text.begin(), text.end());
    Number number;
    const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), number.value);
    if (parsed.ec == std::errc::result_out_of_range) {
        const bool isSmall = digits.find('-') != std::string::npos;
        number = {isSmall ? 0 : std::numeric_limits<double>::infinity(), true};
    }
    if (isNegative)
        number.value = -number.value;
    return number;
}

class Ordered {
public:
    explicit Ordered(std::wstring_view text) : m_text(text) {
        const std::size_t end = FindNumberEnd(text);
        if (end > 0) {
            m_place = Place::Number;
            m_number = ToNumber(text.substr(0, FindExponentEnd(text, end)));
            m_rest = text.substr(end);
        } else if (!text.empty() && text.front() > L'9') {
            m_place = Place::BehindNumbers;
        }
    }

    bool IsLess(const Ordered& other) const {
        if (m_place != other.m_place)
            return m_place < other.m_place;
        if (m_place != Place::Number)
            return m_text < other.m_text;
        if (m_number.value != other.m_number.value)
            return m_number.value < other.m_number.value;
        if (m_number.isBeyond != other.m_number.isBeyond)
            return other.m_number.isBeyond;
        // Numbers that no double can tell apart are still different texts.
        return m_number.isBeyond ? m_text < other.m_text : m_rest < other.m_rest;
    }

private:
    std::wstring_view m_text;
    std::wstring_view m_rest;
    Number m_number;
    Place m_place = Place::BeforeNumbers;
};

} // namespace

bool NumberAwareLess::operator()(const SharedText& a, const SharedText& b) const {
    return Ordered(a.Str()).IsLess(Ordered(b.Str()));
}

} // namespace productTree
