// Converts bytes of a named 8-bit encoding into wide characters.
#pragma once

#include <string>
#include <string_view>

namespace desktop::step {

class CharacterConverter final {
public:
    /// `encoding` is a name that the system's converter knows; any other gives one that is not
    /// open.
    explicit CharacterConverter(const std::string& encoding);
    CharacterConverter(const CharacterConverter&) = delete;
    CharacterConverter& operator=(const CharacterConverter&) = delete;
    ~CharacterConverter();

    bool IsOpen() const;
    /// Empty when `bytes` are not exactly one or a few whole characters of the encoding.
    std::wstring Convert(std::string_view bytes) const;

private:
    /// What the system calls iconv_t.
    void* m_handle;
};

} // namespace desktop::step
