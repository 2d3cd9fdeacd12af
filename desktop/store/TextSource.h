// The bytes of a text with the place of each, handed to the JSON parser one at a time and read from
// a file in pieces. It knows just enough of JSON to say where the token began that the parser has
// finished, since the parser itself does not tell.
#pragma once

#include "desktop/store/JsonDocument.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace desktop::store {

class TextSource final {
public:
    /// Both skip a byte order mark, which counts as no character.
    explicit TextSource(std::string_view text);
    explicit TextSource(std::FILE& file);

    /// Fetches the next piece where that is needed.
    bool AtEnd();
    /// Only when not AtEnd.
    char Current() const noexcept { return *m_next; }
    void Advance() noexcept;

    /// Where the token begins that the parser is working on.
    TextPosition TokenStart() const noexcept { return m_isInToken ? m_tokenStart : m_last; }
    /// The parser has finished a token, and the next one has yet to begin.
    void EndToken() noexcept { m_isInToken = false; }
    /// A number ends where something else begins, so the parser has read one byte further.
    void EndNumber() noexcept;

    TextPosition LastRead() const noexcept { return m_last; }
    TextPosition NextRead() const noexcept { return m_here; }
    bool HasText() const noexcept { return m_hasText; }
    /// The text was cut because nobody writes product files of that length.
    bool IsTooLong() const noexcept { return m_isTooLong; }
    /// Why the file could not be read to its end.
    const std::optional<std::string>& ReadFailure() const noexcept { return m_readFailure; }

private:
    void SkipMark();

    std::FILE* m_file = nullptr;
    std::array<char, 1 << 16> m_piece;
    const char* m_next = nullptr;
    const char* m_end = nullptr;
    std::size_t m_length = 0;
    TextPosition m_here;
    TextPosition m_last;
    TextPosition m_tokenStart;
    char m_lastByte = 0;
    bool m_isInToken = false;
    bool m_hasText = false;
    bool m_isTooLong = false;
    std::optional<std::string> m_readFailure;
};

/// What the parser takes: an input iterator over a source. Without a source it is the end.
class TextIterator final {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = char;

    TextIterator() = default;
    explicit TextIterator(TextSource& source) : m_source(&source) {}

    char operator*() const noexcept { return m_source->Current(); }
    TextIterator& operator++() noexcept {
        m_source->Advance();
        return *this;
    }
    TextIterator operator++(int) noexcept {
        const TextIterator before = *this;
        m_source->Advance();
        return before;
    }
    friend bool operator==(const TextIterator& a, const TextIterator& b) {
        return a.IsEnd() == b.IsEnd();
    }

private:
    bool IsEnd() const { return !m_source || m_source->AtEnd(); }

    TextSource* m_source = nullptr;
};

} // namespace desktop::store
