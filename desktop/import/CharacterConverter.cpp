#include "desktop/import/CharacterConverter.h"

#include <array>
#include <cstdint>
#include <iconv.h>

namespace desktop::step {

namespace {

const char* const wideEncoding = "UTF-32LE";
static_assert(sizeof(wchar_t) == 4);

constexpr auto failure = static_cast<std::size_t>(-1);

} // namespace

CharacterConverter::CharacterConverter(const std::string& encoding)
    : m_handle(iconv_open(wideEncoding, encoding.c_str())) {}

CharacterConverter::~CharacterConverter() {
    if (IsOpen())
        iconv_close(m_handle);
}

bool CharacterConverter::IsOpen() const {
    return reinterpret_cast<std::intptr_t>(m_handle) != -1;
}

std::wstring CharacterConverter::Convert(std::string_view bytes) const {
    if (!IsOpen())
        return {};
    std::array<wchar_t, 8> wide{};
    char* in = const_cast<char*>(bytes.data());
    std::size_t inLeft = bytes.size();
    char* out = reinterpret_cast<char*>(wide.data());
    std::size_t outLeft = sizeof(wide);
    // Forgets what an earlier, incomplete character left behind.
    iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
    if (iconv(m_handle, &in, &inLeft, &out, &outLeft) == failure)
        return {};
    iconv(m_handle, nullptr, nullptr, &out, &outLeft);
    return {wide.data(), (sizeof(wide) - outLeft) / sizeof(wchar_t)};
}

} // namespace desktop::step
