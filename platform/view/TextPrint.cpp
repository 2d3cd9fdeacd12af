#include "platform/view/TextPrint.h"

#include "platform/values/Utf8.h"
#include "platform/view/TreeTableView.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace platform {

namespace {

struct CodeRange {
    std::uint32_t first;
    std::uint32_t last;
};

// clang-format off
constexpr std::array c_wideRanges = {
    CodeRange{0x1100, 0x115F},   // Hangul letters
    CodeRange{0x2E80, 0x303E},   // CJK radicals, punctuation
    CodeRange{0x3041, 0x33FF},   // Kana, CJK symbols
    CodeRange{0x3400, 0x4DBF},   // CJK extension A
    CodeRange{0x4E00, 0x9FFF},   // CJK
    CodeRange{0xA000, 0xA4CF},   // Yi
    CodeRange{0xA960, 0xA97F},   // Hangul letters, extended
    CodeRange{0xAC00, 0xD7A3},   // Hangul syllables
    CodeRange{0xF900, 0xFAFF},   // CJK compatibility
    CodeRange{0xFE30, 0xFE6F},   // CJK compatibility forms
    CodeRange{0xFF00, 0xFF60},   // full-width forms
    CodeRange{0xFFE0, 0xFFE6},   // full-width signs
    CodeRange{0x1F300, 0x1F64F}, // pictures
    CodeRange{0x1F900, 0x1F9FF}, // pictures
    CodeRange{0x20000, 0x3FFFD}, // CJK extensions
};
constexpr std::array c_markRanges = {
    CodeRange{0x0300, 0x036F},   // combining marks
    CodeRange{0x0483, 0x0489},   // Cyrillic marks
    CodeRange{0x0591, 0x05BD},   // Hebrew points
    CodeRange{0x064B, 0x065F},   // Arabic marks
    CodeRange{0x1AB0, 0x1AFF},   // combining marks
    CodeRange{0x1DC0, 0x1DFF},   // combining marks
    CodeRange{0x200B, 0x200F},   // zero-width characters
    CodeRange{0x20D0, 0x20FF},   // marks for symbols
    CodeRange{0x3099, 0x309A},   // voiced sound marks
    CodeRange{0xFE00, 0xFE0F},   // variation selectors
    CodeRange{0xFE20, 0xFE2F},   // combining half marks
    CodeRange{0xFEFF, 0xFEFF},   // byte order mark
};
// clang-format on

template <std::size_t Count>
bool IsIn(const std::array<CodeRange, Count>& ranges, std::uint32_t code) {
    const auto after =
        std::upper_bound(ranges.begin(), ranges.end(), code,
                         [](std::uint32_t value, const CodeRange& r) { return value < r.first; });
    return after != ranges.begin() && code <= std::prev(after)->last;
}

bool IsControl(wchar_t character) {
    const auto code = static_cast<std::uint32_t>(character);
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029;
}

/// A text that stays on its line, and that a terminal doesn't take for orders.
std::wstring OnOneLine(std::wstring text) {
    std::replace_if(text.begin(), text.end(), IsControl, L' ');
    return text;
}

using Line = std::vector<std::wstring>;

class Table {
public:
    explicit Table(const std::vector<ColumnHead>& heads) : m_heads(heads) {
        Line captions;
        for (const ColumnHead& head : heads)
            captions.push_back(OnOneLine(head.caption));
        Add(std::move(captions));
    }

    void AddRows(const TreeTableRow& row, PrintedRows rows, std::size_t depth) {
        const bool hasChildren = row.GetChildCount() > 0;
        const bool goesOn = rows == PrintedRows::All || row.IsExpanded();
        Line line;
        for (const ColumnHead& head : m_heads) {
            std::wstring text = OnOneLine(GetShownText(row, head).Str());
            if (head.kind == HeadKind::Name) {
                const wchar_t* const fold = !hasChildren ? L"  " : goesOn ? L"- " : L"+ ";
                text.insert(0, fold).insert(0, 2 * depth, L' ');
            }
            line.push_back(std::move(text));
        }
        Add(std::move(line));
        for (std::size_t i = 0; goesOn && i < row.GetChildCount(); ++i)
            AddRows(row.GetChildRow(i), rows, depth + 1);
    }

    void Write(std::string& out) const {
        for (const Line& line : m_lines)
            WriteLine(line, out);
    }

private:
    void Add(Line line) {
        m_widths.resize(line.size());
        for (std::size_t i = 0; i < line.size(); ++i)
            m_widths[i] = std::max(m_widths[i], DisplayWidth(line[i]));
        m_lines.push_back(std::move(line));
    }

    void WriteLine(const Line& line, std::string& out) const {
        const std::size_t start = out.size();
        for (std::size_t i = 0; i < line.size(); ++i) {
            const std::size_t padding = m_widths[i] - DisplayWidth(line[i]);
            if (i > 0)
                out += "  ";
            if (m_heads[i].IsNumeric())
                out.append(padding, ' ');
            out += ToUtf8(line[i]);
            if (!m_heads[i].IsNumeric())
                out.append(padding, ' ');
        }
        out.resize(std::max(start, out.find_last_not_of(' ') + 1));
        out += '\n';
    }

    const std::vector<ColumnHead>& m_heads;
    std::vector<Line> m_lines;
    std::vector<std::size_t> m_widths;
};

} // namespace

std::size_t DisplayWidth(std::wstring_view text) {
    std::size_t width = 0;
    for (const wchar_t character : text) {
        const auto code = static_cast<std::uint32_t>(character);
        if (code < c_markRanges.front().first)
            ++width;
        else if (!IsIn(c_markRanges, code))
            width += IsIn(c_wideRanges, code) ? 2 : 1;
    }
    return width;
}

std::string PrintTree(const TreeTableView& view, PrintedRows rows) {
    std::string out = ToUtf8(OnOneLine(view.GetPanel().caption.Str()));
    if (!out.empty())
        out += '\n';
    if (view.GetHeads().empty())
        return out;
    Table table(view.GetHeads());
    if (const TreeTableRow* root = view.GetRoot())
        table.AddRows(*root, rows, 0);
    table.Write(out);
    return out;
}

} // namespace platform
