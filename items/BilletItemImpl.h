// The row of a billet, right behind the object that it belongs to. An object row that adds its
// owner's designation to its name and that counts only where billets do.
#pragma once

#include "items/InfObjectItemImpl.h"

namespace productTree {

class BilletItemImpl final : public InfObjectItemImpl {
public:
    /// `sourceKey` is the object that the billet belongs to.
    BilletItemImpl(TreeRowPtr row, IfProductTreeData* data, UniqueMetaObjectKey key,
                   UniqueMetaObjectKey sourceKey);

    /// Never: the document shows its owner.
    bool CanHighlight() const override;
    void CollectSelectionKeys(std::vector<Key>& keys) const override;
    /// For instance "Rod (billet AB.123)".
    SharedText GetDisplayName(const SharedText& text) const override;
    /// 0 unless `withBillets` is 1.
    unsigned GetCount(int withBillets) const override;

private:
    SharedText GetOwnerMarking() const;

    UniqueMetaObjectKey m_sourceKey;
};

} // namespace productTree
