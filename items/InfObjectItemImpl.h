// The row of one object of the product. Nearly everything it answers is a question to the product
// data about its key. The root row and the rows of billets are object rows with differences.
#pragma once

#include "items/ProductTreeItemImpl.h"

namespace productTree {

class InfObjectItemImpl : public ProductTreeItemImpl {
public:
    InfObjectItemImpl(TreeRowPtr row, IfProductTreeData* data, UniqueMetaObjectKey key);

    bool IsGroup() const override;
    std::shared_ptr<ProductTreeItemId> GetId() const override;
    void SplitByHypertext(std::vector<UniqueMetaObjectKey>& with,
                          std::vector<UniqueMetaObjectKey>& without,
                          const std::wstring& columnId) const override;
    bool UpdateActual() override;
    std::set<int> GetLockedMarkingParts() const override;
    /// 1, or 0 for an object that does not count.
    unsigned GetCount(int withBillets) const override;
    void UpdateIcon() override;
    std::shared_ptr<ProductTreeCellImpl> CreateCell(const ColumnInfo& column) override;

protected:
    /// 1, or 0 for an object that is not aggregated into the product.
    unsigned CountByAggregation() const;

    UniqueMetaObjectKey m_key;
};

/// The top row: the object that the whole tree belongs to.
class RootItemImpl final : public InfObjectItemImpl {
public:
    using InfObjectItemImpl::InfObjectItemImpl;
};

} // namespace productTree
