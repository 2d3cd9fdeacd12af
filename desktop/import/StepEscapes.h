// The escapes in a string of the exchange format: characters by their code in any plane, characters
// of the upper half of an 8-bit alphabet, doubled quotes and backslashes.
#pragma once

#include <string>
#include <string_view>

namespace desktop::step {

/// What is no whole escape stays as it is written; a code that is no character becomes the
/// replacement character.
std::wstring DecodeEscapes(std::wstring_view text);

} // namespace desktop::step
