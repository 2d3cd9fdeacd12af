#include "desktop/FileMark.h"

#include <array>
#include <cstdio>
#include <memory>

namespace desktop {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

// FNV-1a.
constexpr std::uint64_t c_hashStart = 0xCBF29CE484222325;
constexpr std::uint64_t c_hashFactor = 0x100000001B3;

constexpr std::size_t c_blockSize = 1U << 16U;

} // namespace

std::optional<FileMark> FileMark::Take(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return std::nullopt;
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rbe"));
    if (!file)
        return std::nullopt;
    FileMark mark;
    auto& [length, hash] = mark.m_contents;
    hash = c_hashStart;
    std::array<unsigned char, c_blockSize> block{};
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), file.get())) {
        length += size;
        for (std::size_t i = 0; i < size; ++i)
            hash = (hash ^ block[i]) * c_hashFactor;
    }
    if (std::ferror(file.get()))
        return std::nullopt;
    return mark;
}

} // namespace desktop
