// A row of the tree-table in memory. It remembers what it is told, knows its place among its
// siblings, and notes a change only where a value differs from what it was. It draws nothing.
#pragma once

#include "host/view/ITreeTableRow.h"
#include "platform/view/TreeRowMarking.h"
#include "platform/view/TreeTableHub.h"

#include <cstdint>
#include <vector>

namespace platform {

/// Made for a hundred thousand of its kind: one allocation a row beside the list of its children,
/// texts shared, flags in bits, column ids as numbers.
class TreeTableRow final : public RcBase<ITreeTableRow> {
public:
    explicit TreeTableRow(boost::intrusive_ptr<TreeTableHub> hub);
    ~TreeTableRow() override;

    /// `child` must be a row of the same view that stands nowhere.
    void AppendChild(const TreeRowPtr& child) override;
    std::size_t GetChildCount() const override { return m_children.size(); }
    ITreeTableRow* GetChild(std::size_t index) const override { return &GetChildRow(index); }
    void SetChildCount(std::size_t count) override;
    ITreeTableRow* GetParent() const override { return m_parent; }

    productTree::ProductTreeItemData* GetData() const override { return m_data.get(); }
    void SetData(const boost::intrusive_ptr<productTree::ProductTreeItemData>& data,
                 const std::wstring& nameColumnId, const std::wstring& markingColumnId) override;

    bool IsCurrent() const override { return m_hub->IsCurrent(*this); }
    bool IsExpanded() const override { return HasFlag(Flag::Expanded); }
    void SetExpanded(bool expanded) override;
    /// Always: the user may fold every row, the root row too.
    bool IsCollapsible() const override { return true; }
    void SetReadOnly(bool readOnly) override { SetFlag(Flag::ReadOnly, readOnly); }

    std::size_t GetCellCount() const override { return m_cells.size(); }
    void SetCellCount(std::size_t count) override;
    void SetCellColumn(std::size_t index, const std::wstring& columnId) override;
    void SetCurrentCountColumn(const std::wstring& columnId) override;
    void ResetCurrentCountColumn() override { Change(m_currentCountColumn, NameId{0}); }

    void SetName(const SharedText& raw, const SharedText& shown,
                 const std::wstring& columnId) override;
    SharedText GetNameText() const override { return m_name; }
    SharedText GetNameDisplay() const override { return m_shownName; }
    void SetNameEditable(bool editable) override { SetFlag(Flag::NameEditable, editable); }
    void SetNameHypertext(bool hypertext) override { SetFlag(Flag::NameHypertext, hypertext); }
    void SetNameLinkStyle(int style) override { Change(m_nameLinkStyle, style); }
    void SetNameIcon(const std::wstring& name) override;
    std::wstring GetNameIcon() const override { return m_hub->NameOf(m_nameIcon); }
    void SetSectionNameStyle(bool section) override { SetFlag(Flag::SectionName, section); }
    void SetSectionRowStyle(bool section) override { SetFlag(Flag::SectionRow, section); }

    void SetIcon(int icon, const SharedText& tip) override;
    int GetIcon() const override { return m_icon; }
    void SetRegWithDescState(int state) override { Change(m_regWithDescState, state); }
    void SetAggrIntoProductState(int state) override { Change(m_aggrIntoProductState, state); }

    boost::intrusive_ptr<IMarkingEditor> GetMarkingEditor() override { return &m_marking; }

    TreeTableHub& GetHub() const { return *m_hub; }
    TreeTableRow* GetParentRow() const { return m_parent; }
    TreeTableRow& GetChildRow(std::size_t index) const { return *m_children[index]; }
    /// The row's place among the children of its parent; 0 for the root row.
    std::size_t GetIndex() const { return m_index; }
    const SharedText& GetShownName() const { return m_shownName; }
    const TreeRowMarking& GetMarking() const { return m_marking; }
    const SharedText& GetIconTip() const { return m_hub->NameOf(m_iconTip); }
    const std::wstring& GetNameColumn() const { return m_hub->NameOf(m_nameColumn); }
    const std::wstring& GetCellColumn(std::size_t index) const;
    bool HasCell(const std::wstring& columnId) const;
    const std::wstring& GetCurrentCountColumn() const;
    bool IsReadOnly() const { return HasFlag(Flag::ReadOnly); }
    bool IsNameEditable() const { return HasFlag(Flag::NameEditable); }
    bool IsNameHypertext() const { return HasFlag(Flag::NameHypertext); }
    int GetNameLinkStyle() const { return m_nameLinkStyle; }
    bool IsSection() const { return HasFlag(Flag::SectionRow); }
    bool HasSectionName() const { return HasFlag(Flag::SectionName); }
    bool IsSelected() const { return m_selectionSlot != c_noSlot; }
    int GetRegWithDescState() const { return m_regWithDescState; }
    int GetAggrIntoProductState() const { return m_aggrIntoProductState; }
    /// The row and all below it let go of what the library keeps at them. What it keeps there holds
    /// the row in turn, so that a row which leaves the tree would stay for ever.
    void ReleaseData();
    /// As SetExpanded, but tells the front end nothing, since the user did it there.
    void SetExpandedByUser(bool expanded) { PutFlag(Flag::Expanded, expanded); }

private:
    friend class TreeTableHub;

    enum class Flag : std::uint8_t {
        Expanded,
        ReadOnly,
        NameEditable,
        NameHypertext,
        SectionName,
        SectionRow
    };
    static constexpr std::uint32_t c_noSlot = ~std::uint32_t{0};

    bool HasFlag(Flag flag) const { return (m_flags >> static_cast<unsigned>(flag) & 1U) != 0; }
    void PutFlag(Flag flag, bool on);
    void SetFlag(Flag flag, bool on);
    template <class T>
    void Change(T& field, const T& value) {
        if (field == value)
            return;
        field = value;
        m_hub->Note(&TreeTableChanges::values);
    }
    void ChangeName(NameId& field, const std::wstring& name);

    boost::intrusive_ptr<TreeTableHub> m_hub;
    TreeTableRow* m_parent = nullptr;
    std::vector<boost::intrusive_ptr<TreeTableRow>> m_children;
    boost::intrusive_ptr<productTree::ProductTreeItemData> m_data;
    std::vector<NameId> m_cells;
    SharedText m_name;
    SharedText m_shownName;
    std::uint32_t m_index = 0;
    /// The row's place in the hub's list of selected rows.
    std::uint32_t m_selectionSlot = c_noSlot;
    NameId m_nameColumn = 0;
    NameId m_nameIcon = 0;
    NameId m_iconTip = 0;
    NameId m_currentCountColumn = 0;
    int m_icon = 0;
    int m_nameLinkStyle = 0;
    int m_regWithDescState = 0;
    int m_aggrIntoProductState = 0;
    std::uint8_t m_flags = 0;
    TreeRowMarking m_marking;
};

} // namespace platform
