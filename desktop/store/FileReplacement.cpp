#include "desktop/store/FileReplacement.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
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

constexpr std::string_view c_temporaryStem = ".product-tree-";

/// Takes away what a save in that folder has left whose program was killed: the name says which
/// program that was, and it holds its file locked while it writes.
void RemoveLeftovers(const fs::path& folder) {
    std::error_code error;
    for (auto entry = fs::directory_iterator(folder, error); !error && entry != fs::end(entry);
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (!name.starts_with(c_temporaryStem))
            continue;
        const int owner = std::atoi(name.c_str() + c_temporaryStem.size());
        const bool isGone = owner > 0 && ::kill(owner, 0) != 0 && errno == ESRCH;
        const int file =
            isGone ? ::open(entry->path().c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC) : -1;
        if (file < 0)
            continue;
        if (::flock(file, LOCK_EX | LOCK_NB) == 0)
            ::unlink(entry->path().c_str());
        ::close(file);
    }
}

bool WriteAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return ::fsync(file) == 0;
}

/// A new file beside the one to replace, since a file can be renamed only within its file system.
/// Unless it has taken the place of the other, it is gone with this object.
class TemporaryFile final {
public:
    explicit TemporaryFile(const fs::path& folder) {
        const std::string stem = std::string(c_temporaryStem) + std::to_string(::getpid()) + '-';
        for (int i = 0; i < c_attempts && m_file < 0; ++i) {
            m_path = folder / (stem + std::to_string(i));
            m_file = ::open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, c_newFileMode);
            if (m_file < 0 && errno != EEXIST)
                return;
        }
        if (m_file >= 0)
            ::flock(m_file, LOCK_EX | LOCK_NB);
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

    bool Write(std::string_view text) const { return WriteAll(m_file, text); }

    /// Owner, group and mode of the file to replace.
    bool TakeRights(const struct stat& old) const {
        struct stat own {};
        if (::fstat(m_file, &own) != 0)
            return false;
        const bool isOwnersSame = own.st_uid == old.st_uid && own.st_gid == old.st_gid;
        return (isOwnersSame || ::fchown(m_file, old.st_uid, old.st_gid) == 0) &&
               ::fchmod(m_file, old.st_mode & 07777) == 0;
    }

    /// The file stays where it is, under the name that is given back.
    std::string Keep() {
        m_isKept = true;
        return m_path.string();
    }

    bool Replace(const fs::path& target) {
        m_isKept = ::rename(m_path.c_str(), target.c_str()) == 0;
        return m_isKept;
    }

private:
    fs::path m_path;
    int m_file = -1;
    bool m_isKept = false;
};

/// For a file of somebody else's, which a new one could not be made to belong to.
std::optional<FileError> WriteInPlace(const fs::path& target, std::string_view text) {
    const int file = ::open(target.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    if (file < 0)
        return SystemError(errno);
    std::optional<FileError> error;
    if (!WriteAll(file, text))
        error = SystemError(errno);
    ::close(file);
    return error;
}

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
    RemoveLeftovers(folder);
    TemporaryFile file(folder);
    if (!file.IsOpen() || !file.Write(text))
        return SystemError(errno);
    if (isThere && !file.TakeRights(old)) {
        // The new text is safe in the temporary file until it stands in the other.
        std::optional<FileError> error = WriteInPlace(target, text);
        if (error)
            error->reason += "; the product is kept in " + file.Keep();
        return error;
    }
    if (!file.Replace(target))
        return SystemError(errno);
    return std::nullopt;
}

} // namespace desktop::store
