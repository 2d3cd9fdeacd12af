// A row of the tree-table in memory. It remembers what it is told, knows its place among its
// siblings, and notes a change only where a value differs from what it was. It draws nothing. What
// the user has just left in an editor is kept by the hub; the row answers it to the library alone.
#pragma once

#include "host/view/ITreeTableRow.h"
#include "platform/view/TreeCell.h"
#include "platform/view/TreeRowMarking.h"
#include "platform/view/TreeTableHub.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// Made for a hundred thousand of its kind: one allocation a row beside those of its children and
/// its cells, texts shared, flags in bits, column ids as numbers.
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
    void Select() override;
    void BeginEdit() override { m_hub->RequestEdit(*this); }

    std::size_t GetCellCount() const override { return m_cells.size(); }
    void SetCellCount(std::size_t count) override;
    void SetCellColumn(std::size_t index, const std::wstring& columnId) override;
    void SetCurrentCountColumn(const std::wstring& columnId) override;
    void ResetCurrentCountColumn() override { Change(m_currentCountColumn, NameId{0}); }

    void InitTextEditor(const SharedText& columnId, const SharedText& text, bool editable,
                        const SharedText& tip, const MenuPtr& popup) override;
    void InitIntEditor(const SharedText& columnId, std::optional<int> value, bool canBeEmpty,
                       int min, int max, bool editable, const SharedText& tip) override;
    void InitDoubleEditor(const SharedText& columnId, std::optional<double> value, bool canBeEmpty,
                          bool editable, const SharedText& tip, double step, double min,
                          double max) override;
    void InitBoolEditor(const SharedText& columnId, std::optional<bool> value, bool canBeEmpty,
                        bool editable, const SharedText& tip) override;
    void InitListEditor(const SharedText& columnId, const std::list<SimplePropVal>& list, int index,
                        bool editable, const SharedText& tip) override;
    void InitLinkEditor(const SharedText& columnId, const SharedText& shown, bool opensEditor,
                        const SharedText& tip, bool editable, const SharedText& icon,
                        int style) override;

    void SetTextCell(const SharedText& columnId, const SharedText& text, const SharedText& shown,
                     bool editable, bool recalculable, const SharedText& icon,
                     const MenuPtr& popup) override;
    void SetTimeCell(const SharedText& columnId, const SharedText& text, bool editable,
                     const SharedText& icon) override;
    void SetCellText(const SharedText& columnId, const SharedText& text,
                     const SharedText& shown) override;
    SharedText GetCellText(const SharedText& columnId) const override;
    void SetIntCell(const SharedText& columnId, std::optional<int> value, int min, int max,
                    bool editable, bool recalculable, const SharedText& icon) override;
    void SetIntValue(const SharedText& columnId, std::optional<int> value) override;
    std::optional<int> GetIntValue(const SharedText& columnId) const override;
    void SetDoubleCell(const SharedText& columnId, double value, bool hasValue, bool editable,
                       const SharedText& icon, double min, double max) override;
    void SetDoubleValue(const SharedText& columnId, double value, bool hasValue) override;
    std::optional<double> GetDoubleValue(const SharedText& columnId) const override;
    void SetBoolCell(const SharedText& columnId, std::optional<bool> value, bool canBeEmpty,
                     bool editable, const SharedText& icon) override;
    void SetBoolValue(const SharedText& columnId, std::optional<bool> value) override;
    std::optional<bool> GetBoolValue(const SharedText& columnId) const override;
    void SetListCell(const SharedText& columnId, const std::list<SimplePropVal>& list, int index,
                     bool editable, const SharedText& icon) override;
    void SetListIndex(const SharedText& columnId, int index) override;
    int GetListIndex(const SharedText& columnId) const override;
    void SetLinkCell(const SharedText& columnId, const SharedText& shown, bool opensEditor,
                     const SharedText& tip, bool editable, bool recalculable, bool outdated,
                     const SharedText& icon, int style) override;
    SharedText GetCellSourceIcon(const SharedText& columnId) const override;

    void SetName(const SharedText& raw, const SharedText& shown,
                 const std::wstring& columnId) override;
    SharedText GetNameText() const override;
    SharedText GetNameDisplay() const override { return m_shownName; }
    SharedText GetNameValue() const override { return m_name; }
    void SetNameEditable(bool editable) override { SetFlag(Flag::NameEditable, editable); }
    void SetNameHypertext(bool hypertext) override { SetFlag(Flag::NameHypertext, hypertext); }
    void SetNameLinkStyle(int style) override { ChangeSmall(m_nameLinkStyle, style); }
    void SetNameIcon(const SharedText& name) override { ChangeName(m_nameIcon, name); }
    SharedText GetNameIcon() const override { return m_hub->NameOf(m_nameIcon); }
    void SetSectionNameStyle(bool section) override { SetFlag(Flag::SectionName, section); }
    bool IsSectionNameStyle() const override { return HasFlag(Flag::SectionName); }
    void SetSectionRowStyle(bool section) override { SetFlag(Flag::SectionRow, section); }

    void SetIcon(int icon, const SharedText& tip) override;
    int GetIcon() const override { return m_icon; }
    void SetRegWithDescState(int state) override { ChangeSmall(m_regWithDescState, state); }
    void SetAggrIntoProductState(int state) override { ChangeSmall(m_aggrIntoProductState, state); }
    int GetRegWithDescState() const override { return m_regWithDescState; }
    int GetAggrIntoProductState() const override { return m_aggrIntoProductState; }

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
    /// The cell at a place below GetCellCount.
    const TreeCell& GetCell(std::size_t index) const { return m_cells[index]; }
    /// The cell of that column; null when the row has none. It stays until cells come or go.
    const TreeCell* FindCell(const std::wstring& columnId) const;
    bool HasCell(const std::wstring& columnId) const { return FindCell(columnId) != nullptr; }
    /// Of a cell of this row; empty for a cell that has none.
    const SharedText& GetColumnOf(const TreeCell& cell) const {
        return m_hub->NameOf(cell.m_column);
    }
    /// The resource name of the by-source icon of a cell of this row; empty for none.
    const SharedText& GetIconOf(const TreeCell& cell) const { return m_hub->NameOf(cell.m_icon); }
    const std::wstring& GetCurrentCountColumn() const;
    bool IsReadOnly() const { return HasFlag(Flag::ReadOnly); }
    bool IsNameEditable() const { return HasFlag(Flag::NameEditable); }
    bool IsNameHypertext() const { return HasFlag(Flag::NameHypertext); }
    int GetNameLinkStyle() const { return m_nameLinkStyle; }
    bool IsSection() const { return HasFlag(Flag::SectionRow); }
    bool IsSelected() const { return m_selectionPlace != c_noPlace; }
    /// The row and all below it let go of what the library keeps at them. What it keeps there holds
    /// the row in turn, so that a row which leaves the tree would stay for ever.
    void ReleaseData();
    /// As SetExpanded, but tells the front end nothing, since the user did it there.
    void SetExpandedByUser(bool expanded) { PutFlag(Flag::Expanded, expanded); }

    /// For the hub: the row is in its list of changed rows.
    bool IsInChanges() const { return HasFlag(Flag::InChanges); }
    void SetInChanges(bool isIn) { PutFlag(Flag::InChanges, isIn); }

private:
    friend class TreeTableHub;
    friend class CellWriter;

    enum class Flag : std::uint8_t {
        Expanded,
        ReadOnly,
        NameEditable,
        NameHypertext,
        SectionName,
        SectionRow,
        InChanges
    };
    static constexpr std::uint32_t c_noPlace = ~std::uint32_t{0};

    bool HasFlag(Flag flag) const { return (m_flags >> static_cast<unsigned>(flag) & 1U) != 0; }
    void PutFlag(Flag flag, bool on);
    void SetFlag(Flag flag, bool on);
    template <class T>
    void Change(T& field, const T& value) {
        if (field == value)
            return;
        field = value;
        m_hub->NoteValues(*this);
    }
    void ChangeName(NameId& field, const SharedText& name);
    void ChangeName(NameId& field, const std::wstring& name);
    /// Of styles and states there are but a few.
    void ChangeSmall(std::int8_t& field, int value) {
        Change(field, static_cast<std::int8_t>(value));
    }

    /// As FindCell, for the library, which asks for the same texts over and over.
    TreeCell* CellOf(const SharedText& columnId);
    const TreeCell* CellOf(const SharedText& columnId) const;
    bool IsCellOf(std::size_t place, const SharedText& columnId) const {
        return place < m_cells.size() && m_cells[place].m_column != 0 &&
               GetColumnOf(m_cells[place]).IsSame(columnId);
    }
    const TreeCell* SearchCell(const SharedText& columnId) const;
    /// The first cell without column, or a new one; it has the column then.
    TreeCell& TakeCell(const SharedText& columnId);
    TreeCell& AddCell(NameId column);
    /// A column has one cell: whoever had it loses it.
    void GiveColumn(TreeCell& cell, NameId column);
    /// What the user has left in the cell's editor; null for nothing.
    const RowInput* FindInput(const TreeCell& cell) const;
    /// What the cell's editor holds; no value for a cell of another kind.
    template <class Value>
    std::optional<Value> GetValue(const SharedText& columnId, CellKind kind) const;

    // First, where it fills a gap behind the counter.
    std::uint32_t m_index = 0;
    boost::intrusive_ptr<TreeTableHub> m_hub;
    TreeTableRow* m_parent = nullptr;
    std::vector<boost::intrusive_ptr<TreeTableRow>> m_children;
    boost::intrusive_ptr<productTree::ProductTreeItemData> m_data;
    std::vector<TreeCell> m_cells;
    SharedText m_name;
    SharedText m_shownName;
    /// The row's place in the hub's list of selected rows.
    std::uint32_t m_selectionPlace = c_noPlace;
    NameId m_nameColumn = 0;
    NameId m_nameIcon = 0;
    NameId m_iconTip = 0;
    NameId m_currentCountColumn = 0;
    int m_icon = 0;
    std::int8_t m_nameLinkStyle = 0;
    std::int8_t m_regWithDescState = 0;
    std::int8_t m_aggrIntoProductState = 0;
    std::uint8_t m_flags = 0;
    TreeRowMarking m_marking;
};

} // namespace platform
