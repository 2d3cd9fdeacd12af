// Large products for the benchmark and for tests of cost, the same at every run.
#pragma once

#include "platform/product/ProductModel.h"

#include <cstddef>

namespace support {

/// A product of that many occurrences in about an eighth as many groups: one half of them objects
/// with eight uses each, the other half runs of eight like objects with one use each, so that there
/// are four and a half objects a group. Texts are as in real products, long equal beginnings and
/// numbers at the end. A style of 40 sections, 14 shown columns of all types, three of them the
/// user's own, with a value in most rows.
platform::ProductModel GenerateProduct(std::size_t occurrences);

} // namespace support
