// A tree-table in memory: the view that the library fills, without a window. It remembers all that
// it is told, has an observer for a front end that draws it, and is what tests and headless
// programs look at. What a user does in a front end arrives by the operations named ...ByUser.
#pragma once

#include "host/view/ITreeTableModel.h"
#include "platform/view/TreeColumns.h"
#include "platform/view/TreeTableHub.h"
#include "platform/view/TreeTableRow.h"

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace productTree {
struct ColumnVisibility;
}

namespace platform {

struct AttributeColumn {
    bool isEnabled = false;
    bool isShown = false;
};

/// The switch of embodiment mode, and the combo that chooses embodiments.
struct EmbodimentControls {
    struct Line {
        std::wstring text;
        /// No value: mixed.
        std::optional<bool> isChecked;

        friend bool operator==(const Line&, const Line&) = default;
    };

    bool areAllowed = true;
    bool isEnabled = false;
    bool isOn = false;
    std::vector<Line> lines;
    std::wstring filterText;
};

/// What the panel as a whole was told.
struct PanelState {
    bool isVisible = false;
    bool isActive = false;
    bool isReadOnly = false;
    bool areHeadsShown = false;
    SharedText caption;
    std::string helpTopic;
    std::string toolbar;
    std::string additionalToolbar;
};

class TreeTableView final : public RcBase<ITreeTableModel> {
public:
    TreeTableView();
    ~TreeTableView() override;

    void SetController(productTree::IfProductTreeCtrl& control) override { m_control = &control; }
    void SetVisible(bool visible, bool activate) override;
    bool IsVisible() const override { return m_panel.isVisible; }
    void Activate(bool active) override { ChangePanel(m_panel.isActive, active); }
    void SetCaption(const SharedText& caption) override { ChangePanel(m_panel.caption, caption); }
    void ShowColumnHeads(bool shown) override { ChangePanel(m_panel.areHeadsShown, shown); }
    void SetHelpTopic(const std::string& name) override { ChangePanel(m_panel.helpTopic, name); }
    void SetToolbar(const std::string& name) override { ChangePanel(m_panel.toolbar, name); }
    void SetAdditionalToolbar(const std::string& name) override;
    void SetReadOnly(bool readOnly) override { ChangePanel(m_panel.isReadOnly, readOnly); }

    TreeRowPtr CreateRow() override { return new TreeTableRow(m_hub); }
    ITreeTableRow* GetRootRow(std::size_t index) const override;
    void SetRootRow(const TreeRowPtr& row) override;
    void BeginUpdate() override { m_hub->BeginUpdate(); }
    void EndUpdate() override;

    void ResetColumns() override;
    void AddColumn(const std::wstring& caption, const std::wstring& columnId,
                   bool visible) override;
    void RemoveColumn(int index) override { m_columns.Remove(index); }
    int GetColumnCount() const override;
    std::wstring GetColumnId(int index) const override;
    void SetColumnId(int index, const std::wstring& columnId) override;
    std::wstring GetColumnCaption(int index) const override;
    void SetColumnCaption(int index, const std::wstring& caption) override;
    bool IsColumnVisible(int index) const override;
    int FindColumn(const std::wstring& columnId) const override { return m_columns.Find(columnId); }
    std::vector<std::wstring> GetColumnIds() const override;
    std::map<std::wstring, double> GetColumnWidths() const override { return m_heads.GetWidths(); }
    double GetNameColumnWidth() const override { return m_heads.GetWidth(HeadKind::Name); }
    double GetMarkingColumnWidth() const override;
    void OnColumnsRebuilt() override {}
    void ClearColumnMark() override;
    void SetColumnMark(const std::wstring& columnId, bool marked) override;

    void InitNameHeader(const productTree::ColumnInfo& column) override;
    void InitDesignationHeader(const productTree::ColumnInfo& column) override;
    void InitCountHeader(const productTree::ColumnInfo& column, const std::wstring& text,
                         const std::wstring& tag, bool active) override;
    void InitTextHeader(const productTree::ColumnInfo& column,
                        const boost::intrusive_ptr<IMenuItems>& popup) override;
    void InitIntHeader(const productTree::ColumnInfo& column) override;
    void InitDoubleHeader(const productTree::ColumnInfo& column) override;
    void InitListHeader(const productTree::ColumnInfo& column) override;
    void InitBoolHeader(const productTree::ColumnInfo& column) override;
    void InitLinkHeader(const productTree::ColumnInfo& column) override;
    SharedText GetHeaderName() const override;
    HeaderMarkingParts GetHeaderMarking() const override;
    SharedText GetHeaderText(const SharedText& columnId) const override;
    std::optional<int> GetHeaderInt(const SharedText& columnId) const override;
    std::optional<double> GetHeaderDouble(const SharedText& columnId) const override;
    std::optional<bool> GetHeaderBool(const SharedText& columnId) const override;
    int GetHeaderListIndex(const SharedText& columnId) const override;

    void SetAttributeColumnEnabled(int id, bool enabled) override;
    void SetAttributeColumnShown(int id, bool shown) override;
    bool IsAttributeColumnShown(int id) const override { return GetAttributeColumn(id).isShown; }

    std::vector<TreeRowPtr> GetSelectedRows() const override;
    TreeRowPtr GetCurrentRow() const override { return m_hub->GetCurrent(); }
    void SelectRow(const TreeRowPtr& row, bool makeCurrent, bool select) override;
    /// No row is current afterwards.
    void ClearSelection() override;

    void EnableCommand(unsigned command, bool enabled) override;
    void ShowCommand(unsigned command, bool shown) override;

    void SetGroupEditMode(bool on) override;
    void AddGroupEditProperty(const std::wstring& columnId, bool editable) override;

    bool IsEmbodimentsAllowed() const override { return m_embodiments.areAllowed; }
    void SetEmbodimentSwitch(bool on) override;
    bool GetEmbodimentSwitch() const override { return m_embodiments.isOn; }
    void EnableEmbodimentSwitch(bool enabled) override;
    void ClearEmbodimentFilter() override;
    void AddEmbodimentFilterItem(const std::wstring& text, std::optional<bool> checked) override;
    void SetEmbodimentFilterText(const std::wstring& text) override;
    std::wstring GetEmbodimentFilterText() const override { return m_embodiments.filterText; }

    /// At most one; null takes it away. It must be gone before the front end is.
    void SetObserver(TreeTableObserver* observer) { m_hub->SetObserver(observer); }
    TreeTableChanges TakeChanges() { return m_hub->TakeChanges(); }
    /// Null until the panel is built.
    TreeTableRow* GetRoot() const { return m_root.get(); }
    TreeTableRow* GetCurrent() const { return m_hub->GetCurrent(); }
    const PanelState& GetPanel() const { return m_panel; }
    /// Null until the panel has its control.
    productTree::IfProductTreeCtrl* GetControl() const { return m_control; }
    const std::vector<ColumnHead>& GetHeads() const { return m_heads.GetHeads(); }
    const std::vector<ColumnEntry>& GetColumnEntries() const { return m_columns.GetEntries(); }
    /// The id of the marked column; empty for none.
    const std::wstring& GetMarkedColumn() const { return m_markedColumn; }
    /// An id that is no AttributeColumnId is that of a column neither enabled nor shown.
    AttributeColumn GetAttributeColumn(int id) const;
    /// A command about which nothing was said is neither enabled nor shown. Of one about which one
    /// thing was said, the other holds.
    bool IsCommandEnabled(unsigned command) const;
    bool IsCommandShown(unsigned command) const;
    /// Both of it.
    bool IsCommandOffered(unsigned command) const;
    const EmbodimentControls& GetEmbodiments() const { return m_embodiments; }
    /// Columns that several selected rows can be edited in; no value where not several of them are.
    const std::optional<std::map<std::wstring, bool>>& GetGroupEdit() const { return m_groupEdit; }
    /// Whether embodiment mode is possible where the panel stands; the control hears of it.
    void SetEmbodimentsAllowed(bool allowed);

    /// Replaces the selection. The current row may be null.
    void SelectByUser(const std::vector<TreeTableRow*>& rows, TreeTableRow* current);
    /// The control reads the widths when it builds the next time.
    void SetColumnWidthByUser(const std::wstring& columnId, double width);

    // What the user does to values, heads and columns. Each operation calls the control, which may
    // build all rows anew before it returns, so that no reference to a row that nobody holds is
    // good any more afterwards. Each answers false, and does nothing, for what is not there, is
    // read-only or of another kind than the input, for a row that is not in the tree, without a
    // control, while rows are being changed, and from inside another of these operations. An
    // exception of the control passes. An input stands only until the control has looked at it: the
    // row then shows what the library has written, or what it has always shown, and the observer is
    // told of the row. An input that stands in the cell already is none; the control does not hear
    // of it.

    bool EditCellByUser(TreeTableRow& row, const std::wstring& columnId, const CellInput& input);
    /// A name that is shown as a link is read-only; so with the designation.
    bool EditNameByUser(TreeTableRow& row, const SharedText& text);
    /// A locked part must be what it was.
    bool EditMarkingByUser(TreeTableRow& row, const MarkingParts& parts);
    /// Opens the host's editor of document codes.
    bool EditDocCodeByUser(TreeTableRow& row);
    /// The same for the designations of all selected rows.
    bool EditDocCodesByUser();
    /// The column may be that of the name or the designation, too; so with a link.
    bool ClickSourceIconByUser(TreeTableRow& row, const std::wstring& columnId);
    /// Also in a read-only row.
    bool ClickLinkByUser(TreeTableRow& row, const std::wstring& columnId);
    bool PopupCommandByUser(TreeTableRow& row, const std::wstring& columnId, int command);
    /// A command of the panel's tool strips.
    bool RunCommandByUser(int command);
    /// One of the two check boxes beside the name, by its AttributeColumnId. Only a box that can be
    /// changed.
    bool ClickAttributeByUser(TreeTableRow& row, int columnId);
    /// The column of boxes comes or goes, where that is for the user to say; the control reads it
    /// when it builds the next time.
    bool ShowAttributeColumnByUser(int columnId, bool shown);
    /// Opens the menu of the row's cell, or of the selected rows, and of a column's head. True says
    /// that the control was asked, not that there was something to offer.
    bool ShowRowMenuByUser(TreeTableRow& row, const std::wstring& columnId);
    bool ShowColumnMenuByUser(const std::wstring& columnId);
    /// Lets the user choose which columns there are.
    bool ChooseColumnsByUser();
    bool SwitchEmbodimentsByUser(bool on);
    /// A text that the filter does not take is gone afterwards.
    bool EnterEmbodimentFilterByUser(const std::wstring& text);
    /// The line of that text.
    bool CheckEmbodimentsByUser(const std::wstring& text, bool checked);
    bool EditHeadByUser(const std::wstring& columnId, const CellInput& input);
    /// In the head of the designations. At least one part must have a value.
    bool EditMarkingHeadByUser(const HeaderMarkingParts& parts);
    bool ClickHeadByUser(const std::wstring& columnId);
    bool HeadPopupCommandByUser(const std::wstring& columnId, int command);
    /// `place` is one among all heads. The front end is told of the heads as they are afterwards.
    bool MoveColumnByUser(const std::wstring& columnId, std::size_t place);
    /// An empty list builds the panel anew.
    bool SetColumnsVisibleByUser(const std::vector<productTree::ColumnVisibility>& columns);

private:
    class Update;
    class ControlCall;
    class InputScope;
    struct HeadInput {
        const std::wstring& columnId;
        const CellInput& value;
    };

    template <class T>
    void ChangePanel(T& field, const T& value) {
        if (field == value)
            return;
        field = value;
        m_hub->Note(&TreeTableChanges::panel);
    }
    void InitHead(const productTree::ColumnInfo& column, HeadKind kind,
                  const boost::intrusive_ptr<IMenuItems>& popup = nullptr);
    bool CanCallControl() const;
    /// The row stands in the tree and has something that the control knows it by.
    bool CanActOn(const TreeTableRow& row) const;
    bool CanEdit(const TreeTableRow& row) const;
    bool CanEditMarking(const TreeTableRow& row) const;
    template <class Call>
    bool CallControl(const Call& call);
    /// `call` gets the control and the row's data.
    template <class Call>
    bool CallControl(TreeTableRow& row, const Call& call);
    const ColumnHead* FindHead(HeadKind kind) const;
    template <class Value>
    std::optional<Value> GetHeadInput(const std::wstring& columnId) const;

    boost::intrusive_ptr<TreeTableHub> m_hub;
    boost::intrusive_ptr<TreeTableRow> m_root;
    productTree::IfProductTreeCtrl* m_control = nullptr;
    PanelState m_panel;
    ColumnList m_columns;
    ColumnHeads m_heads;
    /// The heads as they were last announced: a build makes all of them again, mostly the same.
    std::vector<ColumnHead> m_announcedHeads;
    std::wstring m_markedColumn;
    std::map<int, AttributeColumn> m_attributeColumns{{AttributeColumnAggrIntoProduct, {}},
                                                      {AttributeColumnRegWithDesc, {}}};
    /// What the user has left in a head, while the control looks at it.
    const HeadInput* m_headInput = nullptr;
    const HeaderMarkingParts* m_headMarking = nullptr;
    bool m_isInControl = false;
    /// Whether it is enabled and whether it is shown; no value: nothing was said.
    struct CommandState {
        std::optional<bool> isEnabled;
        std::optional<bool> isShown;
    };
    std::map<unsigned, CommandState> m_commands;
    std::optional<std::map<std::wstring, bool>> m_groupEdit;
    EmbodimentControls m_embodiments;
};

/// What a row shows in the column of that head, as TreeCell::GetShownText. Empty for a column that
/// the row has no cell in.
SharedText GetShownText(const TreeTableRow& row, const ColumnHead& head);

} // namespace platform
