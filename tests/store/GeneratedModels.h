// Sound products of every shape for tests of properties that all products have.
#pragma once

#include "platform/product/model/ProductModel.h"

namespace desktop::store {

/// Only inside a rapidcheck property. Small; every member differs from its default now and then.
platform::ProductModel GenerateModel();

} // namespace desktop::store
