#include "desktop/import/StepText.h"

#include "desktop/import/StepSyntax.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace desktop::step {

namespace {

constexpr std::string_view startMark = "ISO-10303-21";
constexpr std::string_view endMark = "END-ISO-10303-21";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view blanks = " \t\r\n\v\f";
constexpr std::string_view commentBegin = "/*";
constexpr std::string_view commentEnd = "*/";
/// Before the two digits of a byte that the reader would not pass on as it is.
constexpr char codeMark = '~';
constexpr std::string_view hexDigits = "0123456789ABCDEF";

bool IsPlain(char c) {
    return c >= 0x20 && c < 0x7F && c != '\'' && c != '\\' && c != codeMark;
}

/// The length of the blanks and comments that `text` begins with.
std::size_t LeadLength(std::string_view text) {
    std::size_t at = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    while (true) {
        at = std::min(text.find_first_not_of(blanks, at), text.size());
        if (!text.substr(at).starts_with(commentBegin))
            return at;
        at = text.find(commentEnd, at + commentBegin.size());
        if (at == std::string_view::npos)
            return text.size();
        at += commentEnd.size();
    }
}

/// The word that a statement begins with; empty for an entity, which begins with its number.
std::string_view Keyword(std::string_view statement) {
    statement.remove_prefix(std::min(statement.find_first_not_of(blanks), statement.size()));
    return statement.substr(0, statement.find_first_of(" \t\r\n\v\f(;#"));
}

/// "#7=<other.stp#id>" gives "other.stp"; the same behind the equals sign of an anchor does, too.
std::string_view FileOfReference(std::string_view statement) {
    const std::size_t begin = statement.find('<', std::min(statement.find('='), statement.size()));
    if (begin == std::string_view::npos)
        return {};
    statement.remove_prefix(begin + 1);
    return statement.substr(0, statement.find_first_of("#>"));
}

std::size_t CountLineBreaks(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count(text, '\n'));
}

class Preparation final {
public:
    explicit Preparation(std::string_view file) : m_file(file) {}

    std::variant<PreparedText, FileError> Run() {
        m_text.reserve(m_file.size() + m_file.size() / 16);
        Skip(LeadLength(m_file));
        while (m_at < m_file.size() && !m_error && !m_isComplete)
            TakePiece();
        if (!m_error && !m_isComplete)
            Fail("the file is cut off here");
        if (m_error)
            return *std::move(m_error);
        return PreparedText{std::move(m_text), std::move(m_otherFiles)};
    }

private:
    void TakePiece() {
        const char c = m_file[m_at];
        if (c == '\'')
            return TakeString();
        if (c == '/' && m_file.substr(m_at).starts_with(commentBegin))
            return TakeComment();
        m_text += c;
        ++m_at;
        if (c == '\n')
            ++m_line;
        else if (c == ';')
            EndStatement();
    }

    void TakeString() {
        const std::size_t begin = m_at;
        m_text += '\'';
        for (++m_at; m_at < m_file.size(); ++m_at) {
            const char c = m_file[m_at];
            if (c == '\'') {
                if (!m_file.substr(m_at + 1).starts_with('\''))
                    return EndString(begin);
                AddCode(c);
                ++m_at;
            }
            AddToString(c);
        }
        Fail("a text begins here and does not end");
    }

    void EndString(std::size_t begin) {
        m_text += '\'';
        ++m_at;
        AddLineBreaks(m_file.substr(begin, m_at - begin));
    }

    void AddToString(char c) {
        if (IsPlain(c))
            m_text += c;
        else if (c != '\r' && c != '\n')
            AddCode(c);
    }

    void AddCode(char c) {
        const auto byte = static_cast<unsigned char>(c);
        m_text += {codeMark, hexDigits[byte >> 4], hexDigits[byte & 0xF]};
    }

    void TakeComment() {
        const std::size_t end = m_file.find(commentEnd, m_at + commentBegin.size());
        if (end == std::string_view::npos)
            return Fail("a comment begins here and does not end");
        Skip(end + commentEnd.size() - m_at);
    }

    void Skip(std::size_t length) {
        m_text += ' ';
        AddLineBreaks(m_file.substr(m_at, length));
        m_at += length;
    }

    /// What was left out of a piece, so that the reader counts lines as the file does.
    void AddLineBreaks(std::string_view piece) {
        const std::size_t count = CountLineBreaks(piece);
        m_text.append(count, '\n');
        m_line += count;
    }

    void EndStatement() {
        const std::string_view statement = std::string_view(m_text).substr(m_statement);
        const std::string_view keyword = Keyword(statement);
        m_isComplete = keyword == endMark;
        if (m_section != 0)
            TakeForeignSection(statement, keyword);
        else if (keyword == "ANCHOR" || keyword == "REFERENCE")
            m_section = m_statement;
        else if (keyword == "DATA")
            TakeData();
        else if (const std::optional<SyntaxError> error = CheckSyntax(statement))
            return Fail(error->what, m_line - CountLineBreaks(statement.substr(error->position)));
        m_previous = std::exchange(m_statement, m_text.size());
    }

    /// The reader knows neither names for other files to refer to nor references to them.
    void TakeForeignSection(std::string_view statement, std::string_view keyword) {
        const std::string_view file = FileOfReference(statement);
        if (!file.empty())
            m_otherFiles.emplace(file);
        if (keyword == "ENDSEC")
            CutTo(std::exchange(m_section, 0));
    }

    /// The reader knows one data section, without parameters.
    void TakeData() {
        CutTo(m_hasData ? m_previous : m_statement);
        if (!m_hasData)
            m_text += "DATA;";
        m_hasData = true;
    }

    /// Takes back what was added from there on, except its lines.
    void CutTo(std::size_t begin) {
        const std::size_t lines = CountLineBreaks(std::string_view(m_text).substr(begin));
        m_text.resize(begin);
        m_text.append(lines, '\n');
    }

    void Fail(const char* what) { Fail(what, m_line); }
    void Fail(const char* what, std::size_t line) {
        m_error = FileError{"line " + std::to_string(line) + ": " + what};
    }

    std::string_view m_file;
    std::size_t m_at = 0;
    std::size_t m_line = 1;
    std::string m_text;
    /// Where in m_text the current statement begins, and the one before it.
    std::size_t m_statement = 0;
    std::size_t m_previous = 0;
    /// Where in m_text a section begins that the reader does not know; 0 outside of one.
    std::size_t m_section = 0;
    bool m_hasData = false;
    std::set<std::string> m_otherFiles;
    /// The statement that ends every file was met; what follows it is not looked at.
    bool m_isComplete = false;
    std::optional<FileError> m_error;
};

} // namespace

bool BeginsLikeStep(std::string_view text) {
    return text.substr(LeadLength(text)).starts_with(startMark);
}

std::variant<PreparedText, FileError> PrepareForReader(std::string_view file) {
    return Preparation(file).Run();
}

std::string RestoreString(std::string_view fromReader) {
    std::string text;
    text.reserve(fromReader.size());
    while (!fromReader.empty()) {
        const char c = fromReader.front();
        if (c != codeMark || fromReader.size() < 3) {
            text += c;
            fromReader.remove_prefix(1);
            continue;
        }
        const std::size_t high = hexDigits.find(fromReader[1]);
        const std::size_t low = hexDigits.find(fromReader[2]);
        text += static_cast<char>(high << 4 | low);
        fromReader.remove_prefix(3);
    }
    return text;
}

} // namespace desktop::step
