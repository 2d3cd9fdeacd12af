// The tree-table view of the panel, cut by theme into small roles. All calls come on the UI thread.
// A view may call the control back from inside a call only where that is said.
#pragma once

#include "host/view/AttributeColumns.h"
#include "host/view/IMenuItems.h"
#include "host/view/ITreeTableRow.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace productTree {
class ColumnInfo;
class IfProductTreeCtrl;
} // namespace productTree

/// The panel as a whole.
class ITreeViewPanel : public IRefItem {
public:
    virtual void SetController(productTree::IfProductTreeCtrl& control) = 0;
    virtual void SetVisible(bool visible, bool activate) = 0;
    /// Builds and refreshes run only while this is true.
    virtual bool IsVisible() const = 0;
    virtual void Activate(bool active) = 0;
    virtual void SetCaption(const SharedText& caption) = 0;
    /// Whether the head of the table is shown.
    virtual void ShowColumnHeads(bool shown) = 0;
    /// Names of the host's resources.
    virtual void SetHelpTopic(const std::string& name) = 0;
    virtual void SetToolbar(const std::string& name) = 0;
    virtual void SetAdditionalToolbar(const std::string& name) = 0;
    virtual void SetReadOnly(bool readOnly) = 0;
};

/// The rows. Between BeginUpdate and EndUpdate the view shows nothing of what changes.
class ITreeViewRows {
public:
    virtual ~ITreeViewRows() = default;

    /// A new row that stands nowhere yet.
    virtual TreeRowPtr CreateRow() = 0;
    /// The root row; null until SetRootRow, and for any index but 0.
    virtual ITreeTableRow* GetRootRow(std::size_t index) const = 0;
    virtual void SetRootRow(const TreeRowPtr& row) = 0;
    virtual void BeginUpdate() = 0;
    virtual void EndUpdate() = 0;
};

/// The columns. The view keeps a list with one entry a property that the user could show, and the
/// heads of the columns that are shown, which also say how wide they are.
class ITreeViewColumns {
public:
    virtual ~ITreeViewColumns() = default;

    /// Drops the heads of all columns but name and designation. The list of entries stays.
    virtual void ResetColumns() = 0;
    /// Appends an entry.
    virtual void AddColumn(const std::wstring& caption, const std::wstring& columnId,
                           bool visible) = 0;
    virtual void RemoveColumn(int index) = 0;
    virtual int GetColumnCount() const = 0;
    /// Empty for an entry that belongs to the view itself.
    virtual std::wstring GetColumnId(int index) const = 0;
    virtual void SetColumnId(int index, const std::wstring& columnId) = 0;
    virtual std::wstring GetColumnCaption(int index) const = 0;
    virtual void SetColumnCaption(int index, const std::wstring& caption) = 0;
    virtual bool IsColumnVisible(int index) const = 0;
    /// Negative when there is no such entry.
    virtual int FindColumn(const std::wstring& columnId) const = 0;
    /// All columns, in the order in which the user has put them.
    virtual std::vector<std::wstring> GetColumnIds() const = 0;
    /// Widths of the shown columns, as the user has left them, by id; name and designation apart.
    virtual std::map<std::wstring, double> GetColumnWidths() const = 0;
    virtual double GetNameColumnWidth() const = 0;
    virtual double GetMarkingColumnWidth() const = 0;
    /// The columns are complete; a view may lay itself out now.
    virtual void OnColumnsRebuilt() = 0;
    /// Marks the head of the count column that is worked on.
    virtual void ClearColumnMark() = 0;
    virtual void SetColumnMark(const std::wstring& columnId, bool marked) = 0;
};

/// What the user has left in the parts of the designation's head. All selected rows get the
/// designation that it makes: a part without a value is none, be it empty or not touched.
struct HeaderMarkingParts {
    std::optional<std::wstring> base = {};
    std::optional<std::wstring> embodimentNum = {};
    std::optional<std::wstring> additionalNum = {};
    std::optional<std::wstring> code = {};
    std::optional<wchar_t> embodimentNumDelim = {};
    std::optional<wchar_t> additionalNumDelim = {};
    std::optional<wchar_t> codeDelim = {};
};

/// The heads of the columns, each with an editor that gives all selected rows one value. Each
/// Init... makes the head of one column behind those already there; the view reads from the column
/// its id, caption, width, type, limits and list, and may keep a copy. The Get... operations answer
/// what the user has left in the editor, in shown units; they are called from inside
/// IfProductTreeCtrl::OnHeaderEdited.
class ITreeViewHeads {
public:
    virtual ~ITreeViewHeads() = default;

    virtual void InitNameHeader(const productTree::ColumnInfo& column) = 0;
    virtual void InitDesignationHeader(const productTree::ColumnInfo& column) = 0;
    /// The head of a count, of which the editor is one for texts. `tag` tells the column of a
    /// single embodiment, or of a set of them, from that of the current ones, for which it is
    /// empty. `text` says what such a column counts, at more length than its caption; it may be
    /// empty. `active`: the embodiment is the one that is worked on.
    virtual void InitCountHeader(const productTree::ColumnInfo& column, const std::wstring& text,
                                 const std::wstring& tag, bool active) = 0;
    /// `popup` may be null.
    virtual void InitTextHeader(const productTree::ColumnInfo& column,
                                const boost::intrusive_ptr<IMenuItems>& popup) = 0;
    virtual void InitIntHeader(const productTree::ColumnInfo& column) = 0;
    virtual void InitDoubleHeader(const productTree::ColumnInfo& column) = 0;
    virtual void InitListHeader(const productTree::ColumnInfo& column) = 0;
    virtual void InitBoolHeader(const productTree::ColumnInfo& column) = 0;
    /// A head that can only be clicked: IfProductTreeCtrl::OnHeaderClicked.
    virtual void InitLinkHeader(const productTree::ColumnInfo& column) = 0;

    virtual SharedText GetHeaderName() const = 0;
    virtual HeaderMarkingParts GetHeaderMarking() const = 0;
    virtual SharedText GetHeaderText(const SharedText& columnId) const = 0;
    /// No value for an editor that the user has emptied or not touched, as in the next two.
    virtual std::optional<int> GetHeaderInt(const SharedText& columnId) const = 0;
    virtual std::optional<double> GetHeaderDouble(const SharedText& columnId) const = 0;
    virtual std::optional<bool> GetHeaderBool(const SharedText& columnId) const = 0;
    /// -1 when nothing is chosen.
    virtual int GetHeaderListIndex(const SharedText& columnId) const = 0;
};

/// The two columns of check boxes beside the name, by their AttributeColumnId: aggregate into
/// product, register with description. The view keeps whether they are shown.
class ITreeViewAttributeColumns {
public:
    virtual ~ITreeViewAttributeColumns() = default;

    /// Whether the user is offered the column.
    virtual void SetAttributeColumnEnabled(int id, bool enabled) = 0;
    virtual void SetAttributeColumnShown(int id, bool shown) = 0;
    virtual bool IsAttributeColumnShown(int id) const = 0;
};

class ITreeViewSelection {
public:
    virtual ~ITreeViewSelection() = default;

    /// In the view's order, from top to bottom.
    virtual std::vector<TreeRowPtr> GetSelectedRows() const = 0;
    /// Null when no row is.
    virtual TreeRowPtr GetCurrentRow() const = 0;
    /// Adds the row to the selection or takes it out. This and the next may call OnSelectionChanged
    /// of the control.
    virtual void SelectRow(const TreeRowPtr& row, bool makeCurrent, bool select) = 0;
    virtual void ClearSelection() = 0;
};

/// The commands of the panel's tool strips, by their ids among the resources.
class ITreeViewCommands {
public:
    virtual ~ITreeViewCommands() = default;

    /// Whether the command can be given now, and whether the user sees it at all. A command about
    /// which nothing was said is seen and can't be given. Said at the end of each build, refresh
    /// and change of the selection.
    virtual void EnableCommand(unsigned command, bool enabled) = 0;
    virtual void ShowCommand(unsigned command, bool shown) = 0;
};

/// Editing of several selected rows at once, in the heads of the columns.
class ITreeViewGroupEdit {
public:
    virtual ~ITreeViewGroupEdit() = default;

    /// Turned on, no column can be edited until AddGroupEditProperty has named it.
    virtual void SetGroupEditMode(bool on) = 0;
    /// The selected rows have cells in that column; `editable`: one of them at least can be edited.
    virtual void AddGroupEditProperty(const std::wstring& columnId, bool editable) = 0;
};

class ITreeViewEmbodiments {
public:
    virtual ~ITreeViewEmbodiments() = default;

    /// Whether embodiment mode is possible where the panel stands.
    virtual bool IsEmbodimentsAllowed() const = 0;
    /// The switch of embodiment mode among the tool strips. Setting it does not call back.
    virtual void SetEmbodimentSwitch(bool on) = 0;
    virtual bool GetEmbodimentSwitch() const = 0;
    virtual void EnableEmbodimentSwitch(bool enabled) = 0;
    /// The combo that chooses the embodiments to be seen: a check list and a text field.
    virtual void ClearEmbodimentFilter() = 0;
    /// No value for `checked`: some of what the line stands for are chosen and some are not.
    virtual void AddEmbodimentFilterItem(const std::wstring& text, std::optional<bool> checked) = 0;
    /// May call OnEmbodimentFilterChanged.
    virtual void SetEmbodimentFilterText(const std::wstring& text) = 0;
    virtual std::wstring GetEmbodimentFilterText() const = 0;
};

class ITreeTableModel : public ITreeViewPanel,
                        public ITreeViewRows,
                        public ITreeViewColumns,
                        public ITreeViewHeads,
                        public ITreeViewAttributeColumns,
                        public ITreeViewSelection,
                        public ITreeViewCommands,
                        public ITreeViewGroupEdit,
                        public ITreeViewEmbodiments {};
