#include "desktop/store/TextSource.h"

#include <cerrno>
#include <system_error>

namespace desktop::store {

namespace {

constexpr std::string_view c_mark = "\xEF\xBB\xBF";
constexpr std::size_t c_maxLength = std::size_t{1} << 30;

bool IsBetweenTokens(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == ',' || c == ':';
}

bool IsContinuationByte(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

} // namespace

TextSource::TextSource(std::string_view text)
    : m_next(text.data()), m_end(text.data() + text.size()) {
    SkipMark();
}

TextSource::TextSource(std::FILE& file) : m_file(&file) {
    AtEnd();
    SkipMark();
}

void TextSource::SkipMark() {
    const std::string_view first(m_next, static_cast<std::size_t>(m_end - m_next));
    if (first.substr(0, c_mark.size()) == c_mark)
        m_next += c_mark.size();
}

bool TextSource::AtEnd() {
    if (m_next != m_end)
        return false;
    if (!m_file)
        return true;
    if (m_length > c_maxLength) {
        m_isTooLong = true;
        return true;
    }
    errno = 0;
    const std::size_t count = std::fread(m_piece.data(), 1, m_piece.size(), m_file);
    if (count == 0) {
        if (std::ferror(m_file))
            m_readFailure = std::generic_category().message(errno);
        m_file = nullptr;
        return true;
    }
    m_length += count;
    m_next = m_piece.data();
    m_end = m_next + count;
    return false;
}

void TextSource::Advance() noexcept {
    const char c = *m_next++;
    m_lastByte = c;
    if (IsContinuationByte(c))
        return;
    m_last = m_here;
    m_hasText = m_hasText || !IsBetweenTokens(c);
    if (!m_isInToken && !IsBetweenTokens(c)) {
        m_isInToken = true;
        m_tokenStart = m_here;
    }
    if (c == '\n') {
        ++m_here.line;
        m_here.column = 1;
        return;
    }
    ++m_here.column;
}

void TextSource::EndNumber() noexcept {
    m_isInToken = !IsBetweenTokens(m_lastByte);
    m_tokenStart = m_last;
}

} // namespace desktop::store
