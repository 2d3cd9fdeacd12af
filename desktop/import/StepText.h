// The text of a STEP file on its way to the reader. It is checked to be whole, and its strings are
// put into a form that the reader passes on untouched, since the reader by itself loses letters of
// wrapped and raw 8-bit strings. Knows the outer form of the exchange format, not its entities.
#pragma once

#include "desktop/messages/FileError.h"

#include <set>
#include <string>
#include <string_view>
#include <variant>

namespace desktop::step {

bool BeginsLikeStep(std::string_view text);

struct PreparedText {
    /// The same statements on the same lines, with all strings plain ASCII without quotes,
    /// backslashes and line breaks inside, without comments, and with all data in one section.
    std::string text;
    /// Names of other files, from the section for references.
    std::set<std::string> otherFiles;
};

std::variant<PreparedText, FileError> PrepareForReader(std::string_view file);

/// The inner text of a string of the file, from what the reader gives for it.
std::string RestoreString(std::string_view fromReader);

} // namespace desktop::step
