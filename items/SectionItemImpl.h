// The row of a section of the specification: a name with a count, and no cells.
#pragma once

#include "items/SubTreeItemImpl.h"

namespace productTree {

class SectionItemImpl final : public SubTreeItemImpl {
public:
    /// `label` is the text of the row.
    SectionItemImpl(TreeRowPtr row, IfProductTreeData* data, SPCSection section, SharedText label);

    bool IsGroupEditable() const override;
    bool IsGroup() const override;
    std::shared_ptr<ProductTreeItemId> GetId() const override;
    bool CanHighlight() const override;
    bool Delete() override;
    std::set<int> GetLockedMarkingParts() const override;
    /// Two numbers stay free behind a section that has used any.
    unsigned SetPosition(unsigned next, ProductInfObjChangesResult& changes) override;
    void AppendKey(std::vector<Key>& keys) const override;
    bool HasKey(const Key& key) const override;
    Key GetDocumentKey() const override;
    Key GetObjectKey() const override;
    bool IsSectionNameLinked() const override;
    std::vector<std::pair<Key, PropValue>>
    GetValuesToTransmit(const std::wstring& columnId) const override;
    bool CanTransmitToSource(const std::wstring& columnId) const override;
    bool CanSetBySource(const std::wstring& columnId) const override;
    /// Deleting what stands in the section is all that there is.
    bool TrackCellContextMenu(const std::wstring& columnId, LEventsHandler* handler) override;
    void UpdateIcon() override;

protected:
    void UpdateRowStyle() override;
    /// Billets are left out here; the group rows below count them.
    unsigned CountObjects(const ProductTreeItemImpl& child) const override;

private:
    SPCSection m_section;
    SharedText m_label;
    SubTreeRegWithDescAttributeImpl m_ownRegAttribute;
};

} // namespace productTree
