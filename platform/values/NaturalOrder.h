// The order of texts in which numbers inside them compare as numbers: "M8" before "M10". It looks
// at code points alone, so that it is the same on every machine, whatever the process's locale.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Negative, zero or positive. Digits are 0 to 9, and a run of them is one number, however long.
/// Zero also for different texts of equal numbers: "M08" and "M8".
int CompareNatural(std::wstring_view a, std::wstring_view b) noexcept;

/// Bytes that compare, by memcmp and then by length, as CompareNatural does the texts: for texts
/// that are compared many times.
std::string MakeNaturalKey(std::wstring_view text);
/// Some number in the text begins with zeros that do not count. Of texts without such numbers only
/// equal ones compare zero.
bool HasLeadingZeros(std::wstring_view text);
/// Bytes that compare as the texts' code points do, digits among them.
std::string MakePlainKey(std::wstring_view text);

/// The text with capital letters made small, in the alphabets that designations are written in:
/// Latin, Greek and Cyrillic. Other letters stay.
std::wstring FoldCase(std::wstring_view text);

} // namespace platform
