#include "host/FormatLabelUtils.h"

#include <algorithm>
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

/// A mark of a pattern, which begins at a '%': its size, and the number of the argument, 0 for the
/// '%' itself.
struct Mark {
    std::size_t size;
    std::size_t argument;
};

/// No value for a '%' that stands for itself.
std::optional<Mark> ReadMark(std::wstring_view text) {
    constexpr std::size_t maxDigits = 4;
    std::size_t end = 1;
    std::size_t argument = 0;
    for (; end < text.size() && end <= maxDigits && text[end] >= L'0' && text[end] <= L'9'; ++end)
        argument = argument * 10 + static_cast<std::size_t>(text[end] - L'0');
    const bool isClosed = end < text.size() && text[end] == L'%';
    if (!isClosed || (end > 1 && argument == 0))
        return std::nullopt;
    return Mark{end + 1, argument};
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

std::optional<SharedText> FormatText(const SharedText& pattern,
                                     const std::vector<SharedText>& arguments) {
    std::wstring_view rest = pattern.Str();
    std::wstring made;
    std::size_t wanted = 0;
    while (!rest.empty()) {
        const std::size_t plain = std::min(rest.find(L'%'), rest.size());
        made += rest.substr(0, plain);
        rest.remove_prefix(plain);
        if (rest.empty())
            break;
        const std::optional<Mark> mark = ReadMark(rest);
        if (!mark || mark->argument == 0)
            made.push_back(L'%');
        else if (mark->argument <= arguments.size())
            made += arguments[mark->argument - 1].Str();
        wanted = std::max(wanted, mark ? mark->argument : 0);
        rest.remove_prefix(mark ? mark->size : 1);
    }
    if (wanted != arguments.size())
        return std::nullopt;
    return SharedText(std::move(made));
}

} // namespace format_label_utils
