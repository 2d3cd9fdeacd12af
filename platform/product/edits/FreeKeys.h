// Keys for parts that come.
#pragma once

#include "platform/product/index/ProductIndex.h"

#include <string>

namespace platform {

/// `prefix` with the first number behind it that makes a key which no part has, no use of it would
/// have and no link names, so that nothing comes to life by it.
UniqueMetaObjectKey MakeFreeKey(const ProductModel& model, const ProductIndex& index,
                                const std::string& prefix);

} // namespace platform
