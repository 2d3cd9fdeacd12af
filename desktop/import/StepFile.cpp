#include "desktop/import/StepFile.h"

#include "desktop/import/StepText.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

namespace desktop::step {

namespace {

/// A header's comment may come first, but not a book.
constexpr std::size_t headSize = std::size_t{64} * 1024;

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, Closer>;

FileError Because(int error) {
    return {std::generic_category().message(error)};
}

std::optional<FileError> CheckIsFile(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found)
        return Because(ENOENT);
    if (error)
        return FileError{error.message()};
    if (status.type() == std::filesystem::file_type::directory)
        return Because(EISDIR);
    if (status.type() != std::filesystem::file_type::regular)
        return FileError{"not a regular file"};
    return std::nullopt;
}

/// Adds up to `size` bytes to `text`; false on an error of the file.
bool ReadMore(std::FILE* file, std::size_t size, std::string& text) {
    const std::size_t before = text.size();
    text.resize(before + size);
    const std::size_t count = std::fread(text.data() + before, 1, size, file);
    text.resize(before + count);
    return std::ferror(file) == 0;
}

} // namespace

std::variant<std::string, FileError> LoadStepFile(const std::filesystem::path& path) {
    if (const std::optional<FileError> error = CheckIsFile(path))
        return *error;
    const FileHandle file(std::fopen(path.c_str(), "rb"));
    if (!file)
        return Because(errno);

    std::string text;
    if (!ReadMore(file.get(), headSize, text))
        return Because(errno);
    if (text.empty())
        return FileError{"the file is empty"};
    if (!BeginsLikeStep(text))
        return FileError{"not a STEP file"};

    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (!error && size > text.size())
        text.reserve(size + 1);
    while (!std::feof(file.get())) {
        // One byte above the expected rest meets the end of the file in the same read.
        const std::size_t rest = text.capacity() - text.size();
        if (!ReadMore(file.get(), std::max(rest, headSize), text))
            return Because(errno);
    }
    return text;
}

} // namespace desktop::step
