// The part of the product's validation that looks at the documents of objects. Whether the files
// are there is not its matter. Called by ValidateModel only.
#pragma once

#include "platform/product/validation/ProductValidation.h"

namespace platform {

std::optional<ModelFault> ValidateDocuments(const ProductModel& model);

} // namespace platform
