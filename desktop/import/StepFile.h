// Brings the bytes of a STEP file into memory and says why, when it can't.
#pragma once

#include "desktop/messages/FileError.h"

#include <filesystem>
#include <string>
#include <variant>

namespace desktop::step {

/// The whole file, once its first bytes are known to be those of a STEP file.
std::variant<std::string, FileError> LoadStepFile(const std::filesystem::path& path);

} // namespace desktop::step
