#include "cells/RowCommands.h"

#include "cells/CellCommands.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

namespace productTree {

void AddObjectCommands(const IfProductTreeData& data, const UniqueMetaObjectKey& key,
                       std::set<int>& available) {
    if (data.CanShowItemProperties(key))
        available.insert(commands::itemProperties);
    if (data.CanEditSource(key))
        available.insert(data.GetEditSourceCommand(key));
    if (data.CanGotoFeature(key))
        available.insert(commands::gotoFeature);
    if (data.CanConvertToBillet(key))
        available.insert(commands::convertToBillet);
    AddBilletCommand(data, key, available);
}

void AddBilletCommand(const IfProductTreeData& data, const UniqueMetaObjectKey& key,
                      std::set<int>& available) {
    if (data.CanAddBillet(key))
        available.insert(commands::addBillet);
}

void AddHighlightCommand(const ProductTreeItemImpl& item, std::set<int>& available) {
    if (item.CanHighlight())
        available.insert(commands::highlight);
}

void AddRemoveCommand(const ProductTreeItemImpl& item, std::set<int>& available) {
    if (item.CanDelete())
        available.insert(commands::removeProductPart);
}

} // namespace productTree
