// Turns the text of a STEP string, as it stands in the file, into what a person reads: the escapes
// of the exchange format and raw 8-bit text of any encoding. Used while the structure of a file is
// read. Line breaks inside a string are gone before it comes here.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace desktop::step {

class CharacterConverter;

class TextDecoder final {
public:
    /// No value: no such encoding, or one in which the characters of STEP itself have other bytes.
    /// Empty stands for Latin-1.
    static std::optional<TextDecoder> Make(const std::string& encoding);

    /// The inner text of a quoted string. Raw 8-bit text counts as UTF-8 where the whole string is
    /// valid UTF-8, else the encoding decides. Bytes that the encoding does not know are taken as
    /// Latin-1, and what looks like an escape but is none stays as it is written.
    std::wstring Decode(std::string_view text) const;

private:
    explicit TextDecoder(std::shared_ptr<const CharacterConverter> converter);
    std::wstring ToWide(std::string_view text) const;

    /// Null for Latin-1.
    std::shared_ptr<const CharacterConverter> m_converter;
};

} // namespace desktop::step
