// A part's properties as a text for its user.
#pragma once

#include "platform/product/index/ShownValues.h"
#include "platform/product/model/PropertyDescriptions.h"

namespace platform {

/// A line for each described property that has a value, numbers in the units in which they are
/// shown.
SharedText ListProperties(const ProductIndex& index, const PropertyDescriptions& descriptions,
                          const PartEntry& part);

} // namespace platform
