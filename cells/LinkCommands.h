// The three commands on links, which cells of objects, counts and groups give alike to the product
// data: insert one, edit it, take it away.
#pragma once

#include "cells/TreeActionResult.h"
#include "host/PropertyRef.h"
#include "host/UniqueMetaObjectKey.h"

#include <vector>

class IfProductTreeData;

namespace productTree {

struct LinkTargets {
    /// What a link is edited of and taken from.
    std::vector<PropertyRef> linked;
    /// What one is inserted into.
    std::vector<PropertyRef> all;
    /// The object whose row is selected afterwards; the null key leaves the selection alone.
    UniqueMetaObjectKey afterInsert;
    UniqueMetaObjectKey afterEdit;
    /// False where there is no object to ask for.
    bool canAsk = true;
};

bool IsLinkCommand(int command);
/// Nothing is done for any other command.
void ExecLinkCommand(IfProductTreeData& data, int command, const LinkTargets& targets,
                     TreeActionResult& out);

} // namespace productTree
