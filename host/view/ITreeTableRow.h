// A row of the tree-table, cut by theme into small roles. A front end implements it role by role;
// the library sees only the whole.
#pragma once

#include "host/RcBase.h"
#include "host/SharedText.h"
#include "host/SimplePropVal.h"
#include "host/view/AttributeColumns.h"
#include "host/view/IMarkingEditor.h"
#include "host/view/IMenuItems.h"
#include "host/view/LinkStyles.h"

#include <cstddef>
#include <list>
#include <optional>
#include <string>

class ITreeTableRow;

namespace productTree {
class ProductTreeItemData;
}

using TreeRowPtr = boost::intrusive_ptr<ITreeTableRow>;

/// The row's place among the other rows.
class ITreeRowStructure : public IRefItem {
public:
    virtual void AppendChild(const TreeRowPtr& child) = 0;
    virtual std::size_t GetChildCount() const = 0;
    /// The child at that place, which must be below GetChildCount. The row keeps holding it.
    virtual ITreeTableRow* GetChild(std::size_t index) const = 0;
    /// Drops children at the end until `count` are left; never adds any. A dropped row, and each
    /// row below it, lets go of its data, which refers back to the row; a view that goes does the
    /// same with all its rows.
    virtual void SetChildCount(std::size_t count) = 0;
    /// Null for the root row and for a row that stands nowhere.
    virtual ITreeTableRow* GetParent() const = 0;
};

/// What the library keeps at the row.
class ITreeRowData {
public:
    virtual ~ITreeRowData() = default;

    /// Null until SetData. The row keeps holding it.
    virtual productTree::ProductTreeItemData* GetData() const = 0;
    /// The row holds `data` from now on. The two ids are those under which edits of the row's name
    /// and of its designation are reported.
    virtual void SetData(const boost::intrusive_ptr<productTree::ProductTreeItemData>& data,
                         const std::wstring& nameColumnId, const std::wstring& markingColumnId) = 0;
};

/// The user's view of the row.
class ITreeRowState {
public:
    virtual ~ITreeRowState() = default;

    virtual bool IsCurrent() const = 0;
    virtual bool IsExpanded() const = 0;
    virtual void SetExpanded(bool expanded) = 0;
    /// False for a row that always shows its children.
    virtual bool IsCollapsible() const = 0;
    virtual void SetReadOnly(bool readOnly) = 0;
    /// Makes the row the only selected one and the current one, and shows it: rows above it are
    /// expanded where they must be.
    virtual void Select() = 0;
    /// Opens the editor of the row's name.
    virtual void BeginEdit() = 0;
};

/// The row's cells, one a shown column; name and designation are not among them.
class ITreeRowCells {
public:
    virtual ~ITreeRowCells() = default;

    virtual std::size_t GetCellCount() const = 0;
    /// Drops cells at the end, or adds cells without column and editor.
    virtual void SetCellCount(std::size_t count) = 0;
    /// Gives an existing cell a new column; its editor stays.
    virtual void SetCellColumn(std::size_t index, const std::wstring& columnId) = 0;
    /// Marks the count cell of the embodiment that is worked on.
    virtual void SetCurrentCountColumn(const std::wstring& columnId) = 0;
    virtual void ResetCurrentCountColumn() = 0;
};

using MenuPtr = boost::intrusive_ptr<IMenuItems>;

/// Which editor a cell has. Each call takes the first cell that has no column yet, or adds a cell,
/// and gives it its column. Values are in shown units; limits are those of the column as it has
/// them, in stored units, both 0 where there are none. They are a hint: the cell judges what was
/// typed. `tip` may be empty, `popup` null.
class ITreeRowEditors {
public:
    virtual ~ITreeRowEditors() = default;

    virtual void InitTextEditor(const SharedText& columnId, const SharedText& text, bool editable,
                                const SharedText& tip, const MenuPtr& popup) = 0;
    virtual void InitIntEditor(const SharedText& columnId, std::optional<int> value,
                               bool canBeEmpty, int min, int max, bool editable,
                               const SharedText& tip) = 0;
    /// `step` is that of the editor's arrows.
    virtual void InitDoubleEditor(const SharedText& columnId, std::optional<double> value,
                                  bool canBeEmpty, bool editable, const SharedText& tip,
                                  double step, double min, double max) = 0;
    /// `canBeEmpty`: the user may choose to have no value, besides yes and no.
    virtual void InitBoolEditor(const SharedText& columnId, std::optional<bool> value,
                                bool canBeEmpty, bool editable, const SharedText& tip) = 0;
    virtual void InitListEditor(const SharedText& columnId, const std::list<SimplePropVal>& list,
                                int index, bool editable, const SharedText& tip) = 0;
    /// A link, with the values of SetLinkCell.
    virtual void InitLinkEditor(const SharedText& columnId, const SharedText& shown,
                                bool opensEditor, const SharedText& tip, bool editable,
                                const SharedText& icon, int style) = 0;
};

/// What the cells show. `columnId` names the cell; a row without such a cell ignores the call and
/// has neutral answers. `icon` is the resource name of the by-source icon, empty for none. Each
/// Set...Cell also makes the cell one of its kind.
class ITreeRowValues {
public:
    virtual ~ITreeRowValues() = default;

    /// `text` is what an editor starts from, `shown` what is read. `recalculable` marks a count
    /// that can be worked out again. `popup` may be null.
    virtual void SetTextCell(const SharedText& columnId, const SharedText& text,
                             const SharedText& shown, bool editable, bool recalculable,
                             const SharedText& icon, const MenuPtr& popup) = 0;
    virtual void SetCellText(const SharedText& columnId, const SharedText& text,
                             const SharedText& shown) = 0;
    /// The text, or what the user has left in the editor; so with the other Get... operations.
    virtual SharedText GetCellText(const SharedText& columnId) const = 0;

    /// A text cell of which the text is a moment, in ISO 8601: "2026-05-31T00:00:00Z". A view that
    /// has no editor of its own for moments shows and edits the text, which comes back by
    /// GetCellText in any case.
    virtual void SetTimeCell(const SharedText& columnId, const SharedText& text, bool editable,
                             const SharedText& icon) {
        SetTextCell(columnId, text, text, editable, false, icon, nullptr);
    }

    virtual void SetIntCell(const SharedText& columnId, std::optional<int> value, int min, int max,
                            bool editable, bool recalculable, const SharedText& icon) = 0;
    virtual void SetIntValue(const SharedText& columnId, std::optional<int> value) = 0;
    virtual std::optional<int> GetIntValue(const SharedText& columnId) const = 0;

    /// Without `hasValue` the cell is empty and `value` says nothing.
    virtual void SetDoubleCell(const SharedText& columnId, double value, bool hasValue,
                               bool editable, const SharedText& icon, double min, double max) = 0;
    virtual void SetDoubleValue(const SharedText& columnId, double value, bool hasValue) = 0;
    virtual std::optional<double> GetDoubleValue(const SharedText& columnId) const = 0;

    virtual void SetBoolCell(const SharedText& columnId, std::optional<bool> value, bool canBeEmpty,
                             bool editable, const SharedText& icon) = 0;
    virtual void SetBoolValue(const SharedText& columnId, std::optional<bool> value) = 0;
    virtual std::optional<bool> GetBoolValue(const SharedText& columnId) const = 0;

    /// `list` is in shown units; -1 for a value that is not in it. A list that is the same object
    /// as in the last call is the same list.
    virtual void SetListCell(const SharedText& columnId, const std::list<SimplePropVal>& list,
                             int index, bool editable, const SharedText& icon) = 0;
    /// -1 for none.
    virtual void SetListIndex(const SharedText& columnId, int index) = 0;
    /// -1: the user has chosen no value.
    virtual int GetListIndex(const SharedText& columnId) const = 0;

    /// A text that can be clicked, which comes back by OnCellHypertextActivated, and not typed.
    /// `opensEditor`: the click opens an editor of the host rather than following a link.
    /// `outdated` marks a value that does not agree with its source any more. `style` is a
    /// LinkStyle.
    virtual void SetLinkCell(const SharedText& columnId, const SharedText& shown, bool opensEditor,
                             const SharedText& tip, bool editable, bool recalculable, bool outdated,
                             const SharedText& icon, int style) = 0;

    /// The icon last given to the cell; also for the columns of name and designation.
    virtual SharedText GetCellSourceIcon(const SharedText& columnId) const = 0;
};

/// The row's own label.
class ITreeRowName {
public:
    virtual ~ITreeRowName() = default;

    /// `raw` is what an editor starts from, `shown` what is read.
    virtual void SetName(const SharedText& raw, const SharedText& shown,
                         const std::wstring& columnId) = 0;
    /// The raw text, or what the user has left in the name editor.
    virtual SharedText GetNameText() const = 0;
    virtual SharedText GetNameDisplay() const = 0;
    /// The raw text last given, whatever stands in the editor.
    virtual SharedText GetNameValue() const = 0;
    virtual void SetNameEditable(bool editable) = 0;
    /// Whether the name is shown as a link; the style, a LinkStyle, counts only then.
    virtual void SetNameHypertext(bool hypertext) = 0;
    virtual void SetNameLinkStyle(int style) = 0;
    /// The resource name of the by-source icon; empty for none.
    virtual void SetNameIcon(const SharedText& name) = 0;
    virtual SharedText GetNameIcon() const = 0;
    /// Section rows show the name, and the row, in a style of their own.
    virtual void SetSectionNameStyle(bool section) = 0;
    /// The style that was set last; false at first.
    virtual bool IsSectionNameStyle() const = 0;
    virtual void SetSectionRowStyle(bool section) = 0;
};

/// What stands before the label.
class ITreeRowIcon {
public:
    virtual ~ITreeRowIcon() = default;

    /// An icon resource of the host and its tip, which may be empty.
    virtual void SetIcon(int icon, const SharedText& tip) = 0;
    /// 0 until SetIcon.
    virtual int GetIcon() const = 0;
    /// The two check boxes beside the name, each an AttributeState. A click on one of them comes
    /// back by OnRegWithDescClicked or OnAggrIntoProductClicked of the control, and changes nothing
    /// by itself.
    virtual void SetRegWithDescState(int state) = 0;
    virtual void SetAggrIntoProductState(int state) = 0;
    /// The state last set; AttributeStateNone until then.
    virtual int GetRegWithDescState() const = 0;
    virtual int GetAggrIntoProductState() const = 0;
};

class ITreeTableRow : public ITreeRowStructure,
                      public ITreeRowData,
                      public ITreeRowState,
                      public ITreeRowCells,
                      public ITreeRowEditors,
                      public ITreeRowValues,
                      public ITreeRowName,
                      public ITreeRowIcon {
public:
    /// Null for a row that shows no designation.
    virtual boost::intrusive_ptr<IMarkingEditor> GetMarkingEditor() = 0;
};
