#include "desktop/import/StepSyntax.h"

namespace desktop::step {

namespace {

/// Deeper lists exhaust the stack of the reader; real ones stay below ten.
constexpr int maxDepth = 100;

constexpr std::string_view blanks = " \t\r\n\v\f";
constexpr std::string_view digits = "0123456789";
constexpr std::string_view numberChars = "0123456789.+-Ee";
constexpr std::string_view hexDigits = "0123456789ABCDEFabcdef";
constexpr std::string_view wordChars =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool BeginsWord(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '!';
}

class StatementCheck final {
public:
    explicit StatementCheck(std::string_view statement) : m_statement(statement) {}

    std::optional<SyntaxError> Run() {
        TakeStatement();
        if (!m_what)
            return std::nullopt;
        return SyntaxError{m_what, m_at};
    }

private:
    void TakeStatement() {
        SkipBlanks();
        if (Next() == '#')
            TakeInstance();
        else if (BeginsWord(Next()))
            TakeHeaderStatement();
        SkipBlanks();
        if (!m_what && Next() != ';')
            Fail("an unexpected character");
    }

    /// A record with its number, of one type or of several in brackets.
    void TakeInstance() {
        TakeReference();
        SkipBlanks();
        if (m_what || !Take('='))
            return Fail("a record without an equals sign");
        SkipBlanks();
        if (!Take('('))
            return TakeRecord();
        SkipBlanks();
        do {
            TakeRecord();
            SkipBlanks();
        } while (!m_what && Next() != ')');
        Take(')');
    }

    void TakeRecord() {
        if (!BeginsWord(Next()))
            return Fail("a record without a type");
        TakeWord();
        TakeParameters();
    }

    /// The words that begin and end the file and its sections stand without parameters.
    void TakeHeaderStatement() {
        TakeWord();
        SkipBlanks();
        if (Next() == '(')
            TakeParameters();
    }

    /// All up to the bracket that closes the first one.
    void TakeParameters() {
        int depth = 0;
        m_before = Before::Word;
        do {
            SkipBlanks();
            const char c = Next();
            if (c == '(' && ++depth > maxDepth)
                return Fail("brackets nest too deeply");
            if (c == ')')
                --depth;
            TakeParameterPiece(c);
        } while (!m_what && depth > 0);
    }

    void TakeParameterPiece(char c) {
        const bool isAfterValue = m_before == Before::Value;
        const bool isAfterWord = m_before == Before::Word;
        if (c == '(' && !isAfterValue)
            return Pass(Before::Open);
        if (c == ')' && (isAfterValue || m_before == Before::Open))
            return Pass(Before::Value);
        if (c == ',' && isAfterValue)
            return Pass(Before::Comma);
        if (c == ';')
            return Fail("a bracket that is not closed");
        if (isAfterValue || isAfterWord)
            return Fail("an unexpected character");
        if (BeginsWord(c)) {
            TakeWord();
            m_before = Before::Word;
            return;
        }
        TakeValue(c);
        m_before = Before::Value;
    }

    void TakeValue(char c) {
        if (c == '#')
            return TakeReference();
        if (c == '$' || c == '*')
            return Advance(1);
        if (c == '\'')
            return TakeUpTo('\'', std::string_view::npos);
        if (c == '.')
            return TakeUpTo('.', RunLength(wordChars, 1));
        if (c == '"')
            return TakeUpTo('"', RunLength(hexDigits, 1));
        const std::size_t sign = c == '+' || c == '-' ? 1 : 0;
        if (!IsDigit(Next(sign)))
            return Fail("an unexpected character");
        Advance(sign + RunLength(numberChars, sign));
    }

    /// Of any length: exporters write the largest number of 64 bits for a reference to nothing.
    void TakeReference() {
        static constexpr std::size_t mark = 1;
        const std::size_t length = RunLength(digits, mark);
        if (length == 0)
            return Fail("a record number that is none");
        Advance(mark + length);
    }

    /// A value in marks of its own, with `length` characters between them where that is known.
    void TakeUpTo(char mark, std::size_t length) {
        const std::size_t end =
            length == std::string_view::npos ? m_statement.find(mark, m_at + 1) : m_at + 1 + length;
        if (end >= m_statement.size() || m_statement[end] != mark)
            return Fail("a value that does not end");
        Advance(end + 1 - m_at);
    }

    void TakeWord() {
        Take('!');
        Advance(RunLength(wordChars, 0));
    }

    std::size_t RunLength(std::string_view chars, std::size_t offset) const {
        const std::size_t begin = m_at + offset;
        const std::size_t end = m_statement.find_first_not_of(chars, begin);
        return (end == std::string_view::npos ? m_statement.size() : end) - begin;
    }

    void SkipBlanks() { Advance(RunLength(blanks, 0)); }

    /// 0 behind the end.
    char Next(std::size_t offset = 0) const {
        return m_at + offset < m_statement.size() ? m_statement[m_at + offset] : '\0';
    }

    bool Take(char c) {
        if (Next() != c)
            return false;
        Advance(1);
        return true;
    }

    enum class Before { Open, Value, Comma, Word };

    void Pass(Before piece) {
        m_before = piece;
        Advance(1);
    }

    void Advance(std::size_t length) {
        if (!m_what)
            m_at += length;
    }

    /// The first error counts, and its place stays.
    void Fail(const char* what) {
        if (!m_what)
            m_what = what;
    }

    std::string_view m_statement;
    std::size_t m_at = 0;
    Before m_before = Before::Word;
    const char* m_what = nullptr;
};

} // namespace

std::optional<SyntaxError> CheckSyntax(std::string_view statement) {
    return StatementCheck(statement).Run();
}

} // namespace desktop::step
