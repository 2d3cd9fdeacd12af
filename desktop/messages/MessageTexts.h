// Texts that come from the command line, and those of a file in messages about it.
#pragma once

#include <string>
#include <string_view>

namespace desktop {

/// Bytes that are no valid UTF-8 as a whole are taken one by one.
std::wstring FromUtf8OrLatin1(std::string_view text);

/// The text in double quotes on one line for a message, cut where it is long.
std::string Quote(std::wstring_view text);

} // namespace desktop
