// Decides what rows the tree has and in which order. Knows nothing of columns.
#pragma once

#include "sorting/ProductTreeRowInfo.h"

#include <vector>

namespace productTree {

class IProductTreeSorter {
public:
    virtual ~IProductTreeSorter() = default;

    /// The rows below the root.
    virtual std::vector<ProductTreeRowInfo> Sort() = 0;
};

} // namespace productTree
