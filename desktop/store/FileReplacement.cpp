#include "desktop/store/FileReplacement.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace desktop::store {

namespace {

namespace fs = std::filesystem;

constexpr mode_t c_newFileMode = 0666;
constexpr int c_attempts = 100;

FileError SystemError(int code) {
    return FileError{std::generic_category().message(code)};
}

/// A new file beside the one to replace, since a file can be renamed only within its file system.
/// Unless it has taken the place of the other, it is gone with this object.
class TemporaryFile final {
public:
    explicit TemporaryFile(const fs::path& folder) {
        const std::string stem = ".product-tree-" + std::to_string(::getpid()) + '-';
        for (int i = 0; i < c_attempts && m_file < 0; ++i) {
            m_path = folder / (stem + std::to_string(i));
            m_file = ::open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, c_newFileMode);
            if (m_file < 0 && errno != EEXIST)
                return;
        }
    }
    ~TemporaryFile() {
        if (m_file >= 0)
            ::close(m_file);
        if (m_file >= 0 && !m_isKept)
            ::unlink(m_path.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool IsOpen() const noexcept { return m_file >= 0; }

    bool Write(std::string_view text) const {
        while (!text.empty()) {
            const ssize_t written = ::write(m_file, text.data(), text.size());
            if (written < 0 && errno == EINTR)
                continue;
            if (written < 0)
                return false;
            text.remove_prefix(static_cast<std::size_t>(written));
        }
        return ::fsync(m_file) == 0;
    }

    bool TakeMode(mode_t mode) const { return ::fchmod(m_file, mode) == 0; }

    bool Replace(const fs::path& target) {
        m_isKept = ::rename(m_path.c_str(), target.c_str()) == 0;
        return m_isKept;
    }

private:
    fs::path m_path;
    int m_file = -1;
    bool m_isKept = false;
};

} // namespace

std::optional<FileError> ReplaceFile(const fs::path& path, std::string_view text) {
    std::error_code ignored;
    fs::path target = fs::canonical(path, ignored);
    if (target.empty())
        target = path;
    struct stat old {};
    const bool isThere = ::stat(target.c_str(), &old) == 0;
    if (isThere && S_ISDIR(old.st_mode))
        return SystemError(EISDIR);
    if (isThere && !S_ISREG(old.st_mode))
        return FileError{"not an ordinary file"};
    if (isThere && ::access(target.c_str(), W_OK) != 0)
        return SystemError(errno);

    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    TemporaryFile file(folder);
    if (!file.IsOpen() || !file.Write(text))
        return SystemError(errno);
    if (isThere && !file.TakeMode(old.st_mode & 07777))
        return SystemError(errno);
    if (!file.Replace(target))
        return SystemError(errno);
    return std::nullopt;
}

} // namespace desktop::store
