// The commands that name and designation offer for their row as a whole, beside those of a value.
// None of them asks whether the cell can be edited.
#pragma once

#include "host/UniqueMetaObjectKey.h"

#include <set>

class IfProductTreeData;

namespace productTree {

class ProductTreeItemImpl;

/// Properties, source, feature, conversion to a billet and new billet, as the object allows.
void AddObjectCommands(const IfProductTreeData& data, const UniqueMetaObjectKey& key,
                       std::set<int>& available);
void AddBilletCommand(const IfProductTreeData& data, const UniqueMetaObjectKey& key,
                      std::set<int>& available);
void AddHighlightCommand(const ProductTreeItemImpl& item, std::set<int>& available);
void AddRemoveCommand(const ProductTreeItemImpl& item, std::set<int>& available);

} // namespace productTree
