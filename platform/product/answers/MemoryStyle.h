// The specification style of a product in memory, with the user's choices for it. Blocks exist only
// where the record has any; everything else of the host's arrays that a record leaves open is null.
#pragma once

#include "host/data/SpecificationStyles.h"
#include "platform/product/model/ProductModel.h"

#include <memory>

namespace platform {

/// Borrows the record, which must outlive it.
std::unique_ptr<SpcDescription> MakeSpcDescription(const StyleRecord& record);

} // namespace platform
