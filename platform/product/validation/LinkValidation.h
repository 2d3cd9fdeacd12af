// The part of the product's validation that follows links between properties: none may lead back to
// where it came from. What leads to nothing is right, for its target may have been deleted. Called
// by ValidateModel only, for a model in which all else is right.
#pragma once

#include "platform/product/validation/ProductValidation.h"

namespace platform {

std::optional<ModelFault> ValidateLinks(const ProductModel& model);

} // namespace platform
