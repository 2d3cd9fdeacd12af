// What a file was like when it was last read or written, so that a change by another program is
// told from a touch that leaves its contents alone.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <filesystem>
#include <optional>

namespace desktop {

class FileMark {
public:
    /// Reads the whole file. No value when it can't be read.
    static std::optional<FileMark> Take(const std::filesystem::path& path);

    /// As a product keeps it of its source.
    const platform::ContentsMark& Get() const { return m_contents; }

    /// By contents.
    friend bool operator==(const FileMark&, const FileMark&) = default;

private:
    platform::ContentsMark m_contents;
};

} // namespace desktop
