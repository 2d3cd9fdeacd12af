// How a product file writes where the product comes from: the path of the source, which stays right
// when both files are moved together, and the mark of its contents.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace desktop::store {

/// Of a file in the folder or below it, the path from there; of any other the path as it is. An
/// empty folder changes nothing.
std::string ToStoredPath(const std::string& path, const std::filesystem::path& folder);
std::string FromStoredPath(const std::string& stored, const std::filesystem::path& folder);

/// The size in bytes and the hash as 16 digits.
std::string FormatContents(const platform::ContentsMark& contents);
/// No value for what FormatContents does not give.
std::optional<platform::ContentsMark> ParseContents(std::string_view text);

} // namespace desktop::store
