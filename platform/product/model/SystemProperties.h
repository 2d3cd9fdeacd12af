// The properties of the system that users can show as columns, as a product describes them when its
// model does not say otherwise.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <vector>

namespace platform {

/// In the order in which users are offered them; name and marking among them.
const std::vector<PropertyRecord>& GetSystemProperties();

} // namespace platform
