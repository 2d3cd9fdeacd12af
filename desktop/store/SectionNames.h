// The name that a section has by its numbers, which the product file therefore leaves out.
#pragma once

#include "platform/product/model/ProductModel.h"

namespace desktop::store {

/// The style's name of the innermost section or block that the numbers name; without a style, or
/// where it knows no such section, the default name. May be empty.
SharedText SectionName(const std::array<std::int32_t, 6>& numbers,
                       const std::optional<platform::StyleRecord>& style);

} // namespace desktop::store
