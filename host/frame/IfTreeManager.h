// The host's keeper of all tree panels of a document.
#pragma once

#include "host/RcBase.h"

#include <memory>

class GrABaseFeatureTree;
class IfProductTreeData;
class ITreeWrapper;
class TreeModelId;

class IfTreeManager : public IRefItem {
public:
    /// From now on the manager tells the tree of changes, by its id.
    virtual void Register(GrABaseFeatureTree& tree, std::shared_ptr<TreeModelId> id) = 0;
    virtual void Unregister(GrABaseFeatureTree& tree, std::shared_ptr<TreeModelId> id) = 0;
    /// Drops every reference to the wrapper, which is about to go.
    virtual void Forget(ITreeWrapper& wrapper) = 0;
    /// The product data of the panel; null when the document has no product.
    virtual std::shared_ptr<IfProductTreeData> GetProductTreeData(const TreeModelId& id) = 0;
};
