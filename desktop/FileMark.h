// What a file was like when it was last read or written, so that a change by another program is
// told from a touch that leaves its contents alone.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace desktop {

class FileMark {
public:
    /// Reads the whole file. No value when it can't be read.
    static std::optional<FileMark> Take(const std::filesystem::path& path);

    /// By contents.
    friend bool operator==(const FileMark&, const FileMark&) = default;

private:
    std::uint64_t m_size = 0;
    std::uint64_t m_hash = 0;
};

} // namespace desktop
