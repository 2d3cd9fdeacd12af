// How a product file writes the mark of what its source held.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <optional>
#include <string>
#include <string_view>

namespace desktop::store {

/// The size in bytes and the hash as 16 digits.
std::string FormatContents(const platform::ContentsMark& contents);
/// No value for what FormatContents does not give.
std::optional<platform::ContentsMark> ParseContents(std::string_view text);

} // namespace desktop::store
