#include "host/FormatLabelUtils.h"

#include <string_view>

// The label format has one mark: "$|" breaks the line. Every other text stands for itself, a lone
// '$' included, so that texts from foreign files come through as they are.

namespace format_label_utils {

namespace {

constexpr std::wstring_view c_lineBreakMark = L"$|";
// Line feed, vertical tab, form feed, carriage return, next line, line and paragraph separator.
constexpr std::wstring_view c_lineBreaks = L"\n\v\f\r\u0085\u2028\u2029";
constexpr std::wstring_view c_blanks = L" \t\u00A0";

bool IsOneOf(std::wstring_view characters, wchar_t c) {
    return characters.find(c) != std::wstring_view::npos;
}

} // namespace

SharedText FormatLabelForDisplay(const SharedText& text) {
    const std::wstring& raw = text.Str();
    std::size_t mark = raw.find(c_lineBreakMark);
    if (mark == std::wstring::npos)
        return text;

    std::wstring shown;
    shown.reserve(raw.size());
    std::size_t begin = 0;
    for (; mark != std::wstring::npos; mark = raw.find(c_lineBreakMark, begin)) {
        shown.append(raw, begin, mark - begin);
        shown.push_back(L'\n');
        begin = mark + c_lineBreakMark.size();
    }
    shown.append(raw, begin);
    return shown;
}

SharedText RemoveNewLineSymbols(const SharedText& text) {
    const std::wstring& raw = text.Str();
    if (raw.find_first_of(c_lineBreaks) == std::wstring::npos)
        return text;

    std::wstring line;
    line.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (!IsOneOf(c_lineBreaks, raw[i])) {
            line.push_back(raw[i]);
            continue;
        }
        while (!line.empty() && IsOneOf(c_blanks, line.back()))
            line.pop_back();
        while (i + 1 < raw.size() &&
               (IsOneOf(c_blanks, raw[i + 1]) || IsOneOf(c_lineBreaks, raw[i + 1])))
            ++i;
        line.push_back(L' ');
    }
    return line;
}

} // namespace format_label_utils
