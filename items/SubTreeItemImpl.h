// A row that has no object of its own: it stands for the rows below it, and what it answers is the
// sum of their answers, or true as soon as one of them says so.
#pragma once

#include "items/ProductTreeItemImpl.h"

namespace productTree {

class SubTreeItemImpl : public ProductTreeItemImpl {
public:
    SubTreeItemImpl(TreeRowPtr row, IfProductTreeData* data);

    bool CanDelete() const override;
    void CollectKeysToDelete(std::set<Key>& keys) const override;
    void CollectSelectionKeys(std::vector<Key>& keys) const override;
    void SplitByHypertext(std::vector<Key>& with, std::vector<Key>& without,
                          const std::wstring& columnId) const override;
    bool UpdateActual() override;
    bool CanSetPosition() const override;
    bool CanClearPosition() const override;
    void ClearPosition(ProductInfObjChangesResult& changes) override;
    SharedText GetCountSuffix(int withBillets) const override;
    unsigned GetCount(int withBillets) const override;
    void OnChildRowUpdated(ProductTreeItemImpl& child) override;

protected:
    void OnChildRowsUpdate() override;
    /// What the child adds to the objects of the tally, where anyone asks for them.
    virtual unsigned CountObjects(const ProductTreeItemImpl& child) const;
    /// Of the child rows, as they were updated last.
    const RowTally& GetTally() const { return m_tally; }
    SharedText MakeCountSuffix(unsigned count) const;
    /// What the child rows transmit, in their order.
    std::vector<std::pair<Key, PropValue>> JoinValuesToTransmit(const std::wstring& columnId) const;

private:
    RowTally m_tally;
    SubTreeAggrIntoProductAttributeImpl m_ownAggrAttribute;
    /// The suffix that was asked for last, which is mostly the next one, too.
    mutable SharedText m_suffix;
};

} // namespace productTree
