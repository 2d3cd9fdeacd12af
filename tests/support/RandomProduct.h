// Small products made by number, in which everything occurs that a row can depend on: like objects in
// groups, billets, links, own values, sums, typed counts, embodiments, sections, assemblies.
#pragma once

#include "platform/product/model/ProductModel.h"

namespace support {

/// The first objects of a seed are the same with every count, so that a product with fewer is a part
/// of one with more. The product is a valid one.
platform::ProductModel MakeRandomProduct(unsigned seed, unsigned objectCount);

} // namespace support
