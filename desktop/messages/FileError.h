// Why a file could not be read or written, in one line for the user.
#pragma once

#include <string>

namespace desktop {

struct FileError {
    /// One line without the file's name; for text formats it begins with "line L, column C: ".
    std::string reason;
};

} // namespace desktop
