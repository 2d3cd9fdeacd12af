// Strings of the reader's entities, as they stand in the file.
#pragma once

#include <string>

class TCollection_HAsciiString;

namespace desktop::step {

/// Not decoded yet; empty for a value that is not there.
std::string RawText(const TCollection_HAsciiString* text);

} // namespace desktop::step
