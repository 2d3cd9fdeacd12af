// The program as the process that works previews out, and as the one that asks for it and waits.
#pragma once

#include "desktop/messages/FileError.h"

#include <filesystem>
#include <optional>
#include <string>

namespace desktop {

/// Reads requests from standard input, one after the other, answers on standard output and never
/// returns. Whatever a file does to it, it takes no more memory than it may, and ends with the
/// process that asked.
[[noreturn]] void AnswerPreviewRequest();

/// A picture for a file: of what `file` holds, or of the product in it that is called `assembly`.
struct PictureOrder {
    std::filesystem::path file;
    std::string assembly;
    std::string encoding;
    /// Of the longer side, in pixels.
    int size = 0;
    std::filesystem::path picture;
};

/// A fault of either file, whose path is in it.
struct PictureFault {
    std::filesystem::path path;
    FileError error;
};

/// Writes a PNG file, black on white. Takes as long as the drawing takes.
std::optional<PictureFault> WriteFilePicture(const PictureOrder& order);

} // namespace desktop
