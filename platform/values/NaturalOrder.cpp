#include "platform/values/NaturalOrder.h"

#include <algorithm>
#include <cstdint>

namespace platform {

namespace {

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// The end of the run of digits that begins at `begin`.
std::size_t FindNumberEnd(std::wstring_view text, std::size_t begin) {
    while (begin < text.size() && IsDigit(text[begin]))
        ++begin;
    return begin;
}

std::wstring_view WithoutLeadingZeros(std::wstring_view digits) {
    digits.remove_prefix(std::min(digits.find_first_not_of(L'0'), digits.size()));
    return digits;
}

int CompareNumbers(std::wstring_view a, std::wstring_view b) {
    a = WithoutLeadingZeros(a);
    b = WithoutLeadingZeros(b);
    if (a.size() != b.size())
        return a.size() < b.size() ? -1 : 1;
    return a.compare(b);
}

/// Longer encodings begin with greater bytes, so that bytes order as code points do.
void AppendCharacter(std::string& key, wchar_t c) {
    const auto code = static_cast<std::uint32_t>(c);
    const auto append = [&key](std::uint32_t byte) { key.push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        append(code);
        return;
    }
    if (code < 0x800) {
        append(0xC0 | code >> 6);
        append(0x80 | (code & 0x3F));
        return;
    }
    if (code < 0x10000) {
        append(0xE0 | code >> 12);
        append(0x80 | (code >> 6 & 0x3F));
        append(0x80 | (code & 0x3F));
        return;
    }
    append(0xF8);
    for (int shift = 24; shift >= 0; shift -= 8)
        append(code >> shift & 0xFF);
}

/// A number stands where its first digit would, and says first how long it is.
void AppendNumber(std::string& key, std::wstring_view digits) {
    constexpr std::size_t longest = 0xFF;
    digits = WithoutLeadingZeros(digits);
    key.push_back('0');
    key.append(digits.size() / longest, static_cast<char>(longest));
    key.push_back(static_cast<char>(digits.size() % longest));
    for (const wchar_t digit : digits)
        key.push_back(static_cast<char>(digit));
}

struct CaseRange {
    wchar_t first;
    wchar_t last;
    /// Distance to the small letters; 1: capital and small letters alternate, the even code points
    /// being the capitals.
    int distance;
};

// clang-format off
constexpr CaseRange c_capitals[] = {
    {L'A',      L'Z',      32},
    {L'\u00C0', L'\u00D6', 32},
    {L'\u00D8', L'\u00DE', 32},
    {L'\u0100', L'\u012E', 1},
    {L'\u0391', L'\u03A1', 32},
    {L'\u03A3', L'\u03AB', 32},
    {L'\u0400', L'\u040F', 80},
    {L'\u0410', L'\u042F', 32},
    {L'\u0460', L'\u0480', 1},
    {L'\u048A', L'\u04BE', 1},
};
// clang-format on

wchar_t FoldCharacter(wchar_t c) {
    for (const CaseRange& range : c_capitals) {
        if (c < range.first)
            return c;
        if (c > range.last)
            continue;
        const bool isCapital = range.distance > 1 || c % 2 == 0;
        return isCapital ? static_cast<wchar_t>(c + range.distance) : c;
    }
    return c;
}

} // namespace

int CompareNatural(std::wstring_view a, std::wstring_view b) noexcept {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (IsDigit(a[i]) && IsDigit(b[j])) {
            const std::size_t endA = FindNumberEnd(a, i);
            const std::size_t endB = FindNumberEnd(b, j);
            const int order = CompareNumbers(a.substr(i, endA - i), b.substr(j, endB - j));
            if (order != 0)
                return order;
            i = endA;
            j = endB;
            continue;
        }
        if (a[i] != b[j]) {
            // All digits stand where the first of them does.
            const wchar_t left = IsDigit(a[i]) ? L'0' : a[i];
            const wchar_t right = IsDigit(b[j]) ? L'0' : b[j];
            return static_cast<std::uint32_t>(left) < static_cast<std::uint32_t>(right) ? -1 : 1;
        }
        ++i;
        ++j;
    }
    return static_cast<int>(i < a.size()) - static_cast<int>(j < b.size());
}

std::string MakeNaturalKey(std::wstring_view text) {
    std::string key;
    key.reserve(text.size() + 8);
    for (std::size_t i = 0; i < text.size();) {
        if (!IsDigit(text[i])) {
            AppendCharacter(key, text[i++]);
            continue;
        }
        const std::size_t end = FindNumberEnd(text, i);
        AppendNumber(key, text.substr(i, end - i));
        i = end;
    }
    return key;
}

bool HasLeadingZeros(std::wstring_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!IsDigit(text[i]))
            continue;
        const std::size_t end = FindNumberEnd(text, i);
        if (text[i] == L'0' && end - i > 1)
            return true;
        i = end;
    }
    return false;
}

std::string MakePlainKey(std::wstring_view text) {
    std::string key;
    key.reserve(text.size());
    for (const wchar_t c : text)
        AppendCharacter(key, c);
    return key;
}

std::wstring FoldCase(std::wstring_view text) {
    std::wstring folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), FoldCharacter);
    return folded;
}

} // namespace platform
