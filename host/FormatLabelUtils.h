// How the host shows a text that may hold format marks of its labels.
#pragma once

#include "host/SharedText.h"

#include <optional>
#include <vector>

namespace format_label_utils {

/// The text as it is read: marks of the host's label format are gone. A text without marks comes
/// back as the same text, not as a copy.
SharedText FormatLabelForDisplay(const SharedText& text);

/// The text on one line: each line break, with the blanks around it, becomes one blank.
SharedText RemoveNewLineSymbols(const SharedText& text);

/// `pattern` with its placeholders %1%, %2% and so on replaced; %% is a '%', and so is one that
/// begins nothing. No value when the pattern asks for another number of arguments.
std::optional<SharedText> FormatText(const SharedText& pattern,
                                     const std::vector<SharedText>& arguments);

} // namespace format_label_utils
