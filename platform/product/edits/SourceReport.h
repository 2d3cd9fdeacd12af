// Says what an update has made of a product: which components are gone, which are new, and of how
// many the number has changed. Compares the two models and knows nothing of how one was made.
#pragma once

#include "platform/product/edits/SourceUpdate.h"

namespace platform {

/// Both at their homes. `changed` are objects that have changed otherwise.
void Report(const ProductModel& before, std::unordered_set<UniqueMetaObjectKey> changed,
            SourceUpdate& update);

} // namespace platform
