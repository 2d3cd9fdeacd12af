// Large products, the same at every run.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <cstddef>

namespace bench {

/// A product of that many occurrences, `perGroup` of them in each group: one half of the groups are
/// objects with that many uses, the other half, the second among them, as many like objects with
/// one use each. Texts are as in real products, long equal beginnings and
/// numbers at the end. A style of 40 sections, 14 shown columns of all types, three of them the
/// user's own, with a value in most rows.
platform::ProductModel GenerateProduct(std::size_t occurrences, std::size_t perGroup = 8);

} // namespace bench
