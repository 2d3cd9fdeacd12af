// The row of a group of like objects: one object that stands in the product several times, or
// several objects that compare as like. Its child rows are the single occurrences.
#pragma once

#include "items/SubTreeItemImpl.h"

namespace productTree {

class GroupItemImpl final : public SubTreeItemImpl {
public:
    /// `key` is the object of the group that the sorter has chosen.
    GroupItemImpl(TreeRowPtr row, IfProductTreeData* data, UniqueMetaObjectKey key);

    bool IsGroupEditable() const override;
    bool IsGroup() const override;
    /// The first child carries the identity where the key has changed.
    std::shared_ptr<ProductTreeItemId> GetId() const override;
    bool CanHighlight() const override;
    bool Delete() override;
    /// The group's own key: the document knows what stands behind it.
    void CollectSelectionKeys(std::vector<Key>& keys) const override;
    std::set<int> GetLockedMarkingParts() const override;
    /// All members share one position.
    unsigned SetPosition(unsigned next, ProductInfObjChangesResult& changes) override;
    void AppendKey(std::vector<Key>& keys) const override;
    bool HasKey(const Key& key) const override;
    Key GetDocumentKey() const override;
    Key GetObjectKey() const override;
    bool IsSectionNameLinked() const override;
    /// For each member the value that the group row shows.
    std::vector<std::pair<Key, PropValue>>
    GetValuesToTransmit(const std::wstring& columnId) const override;
    bool CanTransmitToSource(const std::wstring& columnId) const override;
    void UpdateIcon() override;
    std::shared_ptr<ProductTreeCellImpl> CreateCell(const ColumnInfo& column) override;

private:
    SharedText MakeDeleteText(const std::set<Key>& keys) const;
    SharedText MakeOwnDeleteText() const;

    UniqueMetaObjectKey m_key;
    GroupRegWithDescAttributeImpl m_ownRegAttribute;
};

} // namespace productTree
