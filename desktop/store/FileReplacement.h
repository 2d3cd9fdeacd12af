// Puts a text into a file as a whole: whoever opens the file sees the old text or the new one, and
// after a failure the old one is still there.
#pragma once

#include "desktop/messages/FileError.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace desktop::store {

/// No value: written. A link is followed; an existing file keeps its
/// owner, group and mode. What a killed program has left of an earlier attempt in that folder goes.
std::optional<FileError> ReplaceFile(const std::filesystem::path& path, std::string_view text);

} // namespace desktop::store
