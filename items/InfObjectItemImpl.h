// The row of one object of the product. Nearly everything it answers is a question to the product
// data about its key. The root row and the rows of billets are object rows with differences.
#pragma once

#include "items/ProductTreeItemImpl.h"

namespace productTree {

class InfObjectItemImpl : public ProductTreeItemImpl {
public:
    InfObjectItemImpl(TreeRowPtr row, IfProductTreeData* data, UniqueMetaObjectKey key);

    bool IsGroupEditable() const override;
    bool IsGroup() const override;
    std::shared_ptr<ProductTreeItemId> GetId() const override;
    bool CanHighlight() const override;
    bool CanDelete() const override;
    bool Delete() override;
    void CollectKeysToDelete(std::set<Key>& keys) const override;
    void CollectSelectionKeys(std::vector<Key>& keys) const override;
    void SplitByHypertext(std::vector<Key>& with, std::vector<Key>& without,
                          const std::wstring& columnId) const override;
    bool UpdateActual() override;
    std::set<int> GetLockedMarkingParts() const override;
    bool CanSetPosition() const override;
    unsigned SetPosition(unsigned next, ProductInfObjChangesResult& changes) override;
    bool CanClearPosition() const override;
    void ClearPosition(ProductInfObjChangesResult& changes) override;
    bool EditDocCode() override;
    /// 1, or 0 for an object that does not count.
    unsigned GetCount(int withBillets) const override;
    void AppendKey(std::vector<Key>& keys) const override;
    bool HasKey(const Key& key) const override;
    Key GetDocumentKey() const override;
    Key GetObjectKey() const override;
    bool IsSectionNameLinked() const override;
    std::vector<std::pair<Key, PropValue>>
    GetValuesToTransmit(const std::wstring& columnId) const override;
    bool CanTransmitToSource(const std::wstring& columnId) const override;
    void UpdateIcon() override;
    std::shared_ptr<ProductTreeCellImpl> CreateCell(const ColumnInfo& column) override;

protected:
    /// 1, or 0 for an object that is not aggregated into the product.
    unsigned CountByAggregation() const;

    UniqueMetaObjectKey m_key;

private:
    InfObjAggrIntoProductAttributeImpl m_ownAggrAttribute;
    InfObjRegWithDescAttributeImpl m_ownRegAttribute;
};

/// The top row: the object that the whole tree belongs to. It can neither be deleted nor
/// highlighted, is never selected as an object, and has neither count nor check boxes.
class RootItemImpl final : public InfObjectItemImpl {
public:
    RootItemImpl(TreeRowPtr row, IfProductTreeData* data, UniqueMetaObjectKey key);

    bool CanHighlight() const override;
    bool CanDelete() const override;
    bool Delete() override;
    void CollectKeysToDelete(std::set<Key>& keys) const override;
    void CollectSelectionKeys(std::vector<Key>& keys) const override;
    bool CanSetPosition() const override;
    unsigned SetPosition(unsigned next, ProductInfObjChangesResult& changes) override;
    bool CanClearPosition() const override;
    void ClearPosition(ProductInfObjChangesResult& changes) override;
    Key GetObjectKey() const override;
    std::shared_ptr<ProductTreeCellImpl> CreateCell(const ColumnInfo& column) override;
};

} // namespace productTree
