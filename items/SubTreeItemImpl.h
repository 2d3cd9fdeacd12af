// A row that has no object of its own: it stands for the rows below it, and what it answers is the
// sum of their answers.
#pragma once

#include "items/ProductTreeItemImpl.h"

namespace productTree {

class SubTreeItemImpl : public ProductTreeItemImpl {
public:
    using ProductTreeItemImpl::ProductTreeItemImpl;

    void SplitByHypertext(std::vector<UniqueMetaObjectKey>& with,
                          std::vector<UniqueMetaObjectKey>& without,
                          const std::wstring& columnId) const override;
    bool UpdateActual() override;
    std::wstring GetCountSuffix(int withBillets) const override;
    unsigned GetCount(int withBillets) const override;
};

/// The row of a section of the specification: a name with a count, and no cells.
class SectionItemImpl final : public SubTreeItemImpl {
public:
    /// `label` is the text of the row.
    SectionItemImpl(TreeRowPtr row, IfProductTreeData* data, SPCSection section, SharedText label);

    bool IsGroup() const override;
    std::shared_ptr<ProductTreeItemId> GetId() const override;
    std::set<int> GetLockedMarkingParts() const override;
    void UpdateRow() override;
    void UpdateIcon() override;

private:
    SPCSection m_section;
    SharedText m_label;
};

/// The row of a group of like objects.
class GroupItemImpl final : public SubTreeItemImpl {
public:
    /// `key` is the object of the group that the sorter has chosen.
    GroupItemImpl(TreeRowPtr row, IfProductTreeData* data, UniqueMetaObjectKey key);

    bool IsGroup() const override;
    /// The first child carries the identity where the key has changed.
    std::shared_ptr<ProductTreeItemId> GetId() const override;
    std::set<int> GetLockedMarkingParts() const override;
    void UpdateIcon() override;
    std::shared_ptr<ProductTreeCellImpl> CreateCell(const ColumnInfo& column) override;

private:
    UniqueMetaObjectKey m_key;
};

} // namespace productTree
