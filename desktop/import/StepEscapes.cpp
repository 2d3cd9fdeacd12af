#include "desktop/import/StepEscapes.h"

#include "desktop/import/CharacterConverter.h"
#include "platform/values/Utf8.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace desktop::step {

namespace {

constexpr wchar_t replacement = 0xFFFD;
constexpr std::wstring_view endOfCodes = L"\\X0\\";

std::optional<std::uint32_t> HexDigit(wchar_t c) {
    if (c >= L'0' && c <= L'9')
        return static_cast<std::uint32_t>(c - L'0');
    if (c >= L'A' && c <= L'F')
        return static_cast<std::uint32_t>(c - L'A' + 10);
    if (c >= L'a' && c <= L'f')
        return static_cast<std::uint32_t>(c - L'a' + 10);
    return std::nullopt;
}

/// No value: not all of them are hexadecimal digits.
std::optional<std::uint32_t> HexNumber(std::wstring_view digits) {
    std::uint32_t number = 0;
    for (const wchar_t c : digits) {
        const std::optional<std::uint32_t> digit = HexDigit(c);
        if (!digit)
            return std::nullopt;
        number = number << 4 | *digit;
    }
    return number;
}

std::size_t HexRun(std::wstring_view text) {
    std::size_t length = 0;
    while (length < text.size() && HexDigit(text[length]))
        ++length;
    return length;
}

/// The character of the upper half of the alphabet ISO 8859-`part`.
wchar_t FromAlphabet(int part, wchar_t lower) {
    const wchar_t latin = lower + 0x80;
    if (part == 1)
        return latin;
    const CharacterConverter alphabet("ISO-8859-" + std::to_string(part));
    const char byte = static_cast<char>(latin);
    const std::wstring character = alphabet.Convert({&byte, 1});
    return character.empty() ? replacement : character.front();
}

class EscapeDecoder final {
public:
    explicit EscapeDecoder(std::wstring_view text) : m_rest(text) {}

    std::wstring Decode() {
        m_decoded.reserve(m_rest.size());
        while (!m_rest.empty()) {
            if (!TakeEscape())
                Take(1, m_rest.front());
        }
        return std::move(m_decoded);
    }

private:
    bool TakeEscape() {
        if (m_rest.starts_with(L"''"))
            return Take(2, L'\'');
        if (m_rest.starts_with(L"\\\\"))
            return Take(2, L'\\');
        if (m_rest.starts_with(L"\\X2\\"))
            return TakeCodes(4);
        if (m_rest.starts_with(L"\\X4\\"))
            return TakeCodes(8);
        if (m_rest.starts_with(L"\\X\\"))
            return TakeByteCode();
        if (m_rest.starts_with(L"\\S\\"))
            return TakeUpperHalf();
        if (m_rest.starts_with(L"\\P"))
            return TakeAlphabet();
        return false;
    }

    bool Take(std::size_t length, wchar_t character) {
        m_decoded += character;
        m_rest.remove_prefix(length);
        return true;
    }

    /// A run of codes of `width` digits each up to its end mark.
    bool TakeCodes(std::size_t width) {
        static constexpr std::size_t head = 4;
        const std::size_t run = HexRun(m_rest.substr(head));
        if (!m_rest.substr(head + run).starts_with(endOfCodes))
            return false;
        std::wstring_view digits = m_rest.substr(head, run);
        m_rest.remove_prefix(head + run + endOfCodes.size());
        std::uint32_t high = 0;
        while (!digits.empty()) {
            const std::wstring_view code = digits.substr(0, width);
            digits.remove_prefix(code.size());
            AddCode(code.size() == width ? HexNumber(code).value_or(replacement) : replacement,
                    high);
        }
        AddHalf(high);
        return true;
    }

    /// `high` is the first half of a surrogate pair that waits for its second; 0 when none does.
    void AddCode(std::uint32_t code, std::uint32_t& high) {
        const bool isSecondHalf = code >= 0xDC00 && code <= 0xDFFF;
        if (high != 0 && isSecondHalf) {
            m_decoded += static_cast<wchar_t>(0x10000 + ((high - 0xD800) << 10) + (code - 0xDC00));
            high = 0;
            return;
        }
        AddHalf(high);
        if (code >= 0xD800 && code <= 0xDBFF)
            high = code;
        else
            m_decoded += platform::IsCodePoint(code) ? static_cast<wchar_t>(code) : replacement;
    }

    /// A first half without its second is no character.
    void AddHalf(std::uint32_t& high) {
        if (high != 0)
            m_decoded += replacement;
        high = 0;
    }

    bool TakeByteCode() {
        static constexpr std::size_t head = 3, digits = 2;
        const std::wstring_view code = m_rest.substr(head, digits);
        const std::optional<std::uint32_t> number = HexNumber(code);
        if (code.size() != digits || !number)
            return false;
        return Take(head + digits, static_cast<wchar_t>(*number));
    }

    bool TakeUpperHalf() {
        static constexpr std::size_t head = 3;
        if (m_rest.size() == head || m_rest[head] < 0x20 || m_rest[head] > 0x7E)
            return false;
        // The quote is doubled like any other in the string.
        const bool isQuote = m_rest.substr(head).starts_with(L"''");
        return Take(head + (isQuote ? 2 : 1), FromAlphabet(m_alphabet, m_rest[head]));
    }

    bool TakeAlphabet() {
        static constexpr std::size_t length = 4, letter = 2;
        if (m_rest.size() < length || m_rest[letter] < L'A' || m_rest[letter] > L'I' ||
            m_rest[letter + 1] != L'\\')
            return false;
        m_alphabet = m_rest[letter] - L'A' + 1;
        m_rest.remove_prefix(length);
        return true;
    }

    std::wstring_view m_rest;
    std::wstring m_decoded;
    int m_alphabet = 1;
};

} // namespace

std::wstring DecodeEscapes(std::wstring_view text) {
    if (text.find_first_of(L"'\\") == std::wstring_view::npos)
        return std::wstring(text);
    return EscapeDecoder(text).Decode();
}

} // namespace desktop::step
