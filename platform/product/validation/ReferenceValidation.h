// The half of the product's validation that follows keys: each names one thing, each reference
// names something that is there, and no chain of ownership comes back to its start. Called by
// ValidateModel only.
#pragma once

#include "platform/product/validation/ProductValidation.h"

namespace platform {

std::optional<ModelFault> ValidateReferences(const ProductModel& model);

} // namespace platform
