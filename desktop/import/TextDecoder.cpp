#include "desktop/import/TextDecoder.h"

#include "desktop/import/CharacterConverter.h"
#include "desktop/import/StepEscapes.h"
#include "platform/values/Utf8.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace desktop::step {

namespace {

/// Names that people use and the converter does not know, and the wider sets that exporters of a
/// platform write under the narrower name.
struct Alias {
    std::string_view name;
    const char* encoding;
};

constexpr std::array aliases{
    Alias{"latin-1", "ISO-8859-1"}, Alias{"latin_1", "ISO-8859-1"}, Alias{"sjis", "CP932"},
    Alias{"shift_jis", "CP932"},    Alias{"shift-jis", "CP932"},    Alias{"gb2312", "GBK"},
    Alias{"big-5", "BIG5"},
};

std::string ToLower(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) {
        return c < 0x80 ? static_cast<char>(std::tolower(c)) : static_cast<char>(c);
    });
    return text;
}

std::string ResolveAlias(const std::string& encoding) {
    const std::string lower = ToLower(encoding);
    const auto alias = std::ranges::find(aliases, lower, &Alias::name);
    return alias == aliases.end() ? encoding : alias->encoding;
}

/// Anything else, a slash above all, would steer the converter.
bool IsPlainName(const std::string& encoding) {
    return std::ranges::all_of(encoding, [](unsigned char c) {
        return c < 0x80 && (std::isalnum(c) || c == '-' || c == '_' || c == '.' || c == ':');
    });
}

wchar_t FromByte(char byte) {
    return static_cast<wchar_t>(static_cast<unsigned char>(byte));
}

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// Letters and digits must stand for themselves: the escapes are written with them.
bool IsAsciiBased(const CharacterConverter& converter) {
    static constexpr std::string_view samples = "09AZaz";
    return std::ranges::all_of(samples, [&](char c) {
        return converter.Convert({&c, 1}) == std::wstring{FromByte(c)};
    });
}

/// Takes the first character off `text`; bytes that are none of the encoding come one by one.
std::wstring TakeCharacter(const CharacterConverter& converter, std::string_view& text) {
    static constexpr std::size_t longest = 4;
    std::wstring character;
    std::size_t length = 0;
    while (character.empty() && length < std::min(longest, text.size()))
        character = converter.Convert(text.substr(0, ++length));
    if (character.empty()) {
        character = FromByte(text.front());
        length = 1;
    }
    text.remove_prefix(length);
    return character;
}

} // namespace

TextDecoder::TextDecoder(std::shared_ptr<const CharacterConverter> converter)
    : m_converter(std::move(converter)) {}

std::optional<TextDecoder> TextDecoder::Make(const std::string& encoding) {
    if (encoding.empty())
        return TextDecoder(nullptr);
    if (!IsPlainName(encoding))
        return std::nullopt;
    auto converter = std::make_shared<const CharacterConverter>(ResolveAlias(encoding));
    if (!converter->IsOpen() || !IsAsciiBased(*converter))
        return std::nullopt;
    return TextDecoder(std::move(converter));
}

std::wstring TextDecoder::Decode(std::string_view text) const {
    // The raw text comes first: in some encodings the second byte of a letter is a backslash.
    return DecodeEscapes(ToWide(text));
}

std::wstring TextDecoder::ToWide(std::string_view text) const {
    if (std::optional<std::wstring> unicode = platform::FromUtf8(text))
        return *std::move(unicode);
    std::wstring wide;
    wide.reserve(text.size());
    while (!text.empty()) {
        if (m_converter && !IsAscii(text.front())) {
            wide += TakeCharacter(*m_converter, text);
            continue;
        }
        wide += FromByte(text.front());
        text.remove_prefix(1);
    }
    return wide;
}

} // namespace desktop::step
