// What an edit, a click or a command in a cell or a head gives back to the control, which alone
// decides what is built or read again and which row is selected.
#pragma once

#include "host/UniqueMetaObjectKey.h"

#include <memory>

namespace productTree {

class ProductTreeItemId;

struct TreeActionResult {
    enum Action {
        Nothing = 0,
        /// Values have changed: the product data knows whether rows have to be built anew.
        ValuesChanged = 1,
        Synchronise = 2,
        Refresh = 3
    };

    int action = Nothing;
    /// Not empty: the row of this object is selected afterwards.
    UniqueMetaObjectKey selectKey;
    /// With `selectKey`: its name editor is opened as well.
    bool selectFlag = false;
    /// The row that was acted on; selected again when all rows were built anew. May be null.
    std::shared_ptr<ProductTreeItemId> item;
};

} // namespace productTree
