// Which rows of a panel show an object, wherever it is used.
#pragma once

#include "host/UniqueMetaObjectKey.h"

#include <vector>

namespace platform {
struct ProductModel;
class TreeTableRow;
} // namespace platform

namespace desktop {

/// From top to bottom: the rows of the object that the key is one of, or one of a use of, and those
/// of groups in which one of these stands. The root may be null.
std::vector<platform::TreeTableRow*> FindRowsOf(const platform::ProductModel& model,
                                                const UniqueMetaObjectKey& key,
                                                platform::TreeTableRow* root);

} // namespace desktop
