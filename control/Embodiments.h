// The embodiments of the document as the count columns show them.
#pragma once

#include "host/UniqueMetaObjectKey.h"

#include <set>
#include <string>
#include <vector>

class IfProductTreeData;

namespace productTree {

struct EmbodimentGroup {
    /// Two groups with the same keys are the same embodiment.
    std::set<UniqueMetaObjectKey> rawKeys;
    /// Short, for the head of the count column.
    std::wstring name;
};

/// In the document's order, without those that have no keys.
std::vector<EmbodimentGroup> ReadEmbodiments(const IfProductTreeData& data);

} // namespace productTree
