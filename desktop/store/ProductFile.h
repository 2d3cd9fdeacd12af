// The product file: a product document as JSON that people can read and write by hand. Reading
// validates; writing replaces the file as a whole or leaves it as it was.
#pragma once

#include "desktop/messages/FileError.h"
#include "platform/product/model/ProductModel.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace desktop::store {

using ReadResult = std::variant<platform::ProductModel, FileError>;

ReadResult ReadProductFile(const std::filesystem::path& path);
ReadResult ParseProduct(std::string_view json);

/// No value: written.
std::optional<FileError> WriteProductFile(const std::filesystem::path& path,
                                          const platform::ProductModel& model);
/// The text of the file, UTF-8, ending in a line break.
std::string FormatProduct(const platform::ProductModel& model);

} // namespace desktop::store
