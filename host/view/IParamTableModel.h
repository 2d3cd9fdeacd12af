// A small table in the box below the tree: the list of documents. The library fills it; what the
// user does in it comes back by IfProductTreeCtrl::OnDocsListEvent.
#pragma once

#include "host/RcBase.h"
#include "host/SharedText.h"

#include <cstddef>
#include <span>
#include <string>
#include <variant>
#include <vector>

/// What OnDocsListEvent is told.
enum DocsListEvent : int {
    /// A command of the tool strip; its id is the data.
    DocsListEventCommand = 1671,
    /// The user wants to remove the selected rows.
    DocsListEventRemove = 1672,
    /// The selection has changed.
    DocsListEventSelection = 1673,
    /// The menu of the selected rows is to be filled: BeginContextMenu may be called now.
    DocsListEventMenu = 1690,
    /// A command of that menu; its id is the data. It comes when the menu has closed.
    DocsListEventMenuCommand = 1691,
};

class IParamTableModel : public IRefItem {
public:
    /// What all columns have. Texts may be empty; widths are those of ColumnInfo.
    struct Column {
        std::wstring key;
        std::wstring caption;
        std::wstring tip;
        int width = 0;
    };
    /// Of an integer column, with the step of its arrows.
    struct Range {
        double min = 0;
        double max = 0;
        double step = 0;
    };
    /// The place of an image, a number, or a text, by the kind of the column.
    using Cell = std::variant<int, SharedText>;

    // Columns are added once, before there are rows. Icons and images are resources of the host; -1
    // is none. `pattern` is a regular expression for what may be typed.
    virtual void AddImageColumn(const Column& column, int icon, std::span<const int> images) = 0;
    virtual void AddIntColumn(const Column& column, const Range& range,
                              const std::wstring& pattern) = 0;
    virtual void AddTextColumn(const Column& column, const std::wstring& pattern) = 0;
    virtual void AddIconTextColumn(const Column& column, int icon, const std::wstring& pattern) = 0;

    virtual std::size_t GetRowCount() const = 0;
    /// `cells` in the order of the columns. The row stands last.
    virtual void AddRow(const std::vector<Cell>& cells) = 0;
    virtual void SetRow(std::size_t index, const std::vector<Cell>& cells) = 0;
    virtual void RemoveRow(std::size_t index) = 0;
    /// Whether the object goes by that cell: others are shown as mere information.
    virtual void SetCellEnabled(const std::wstring& column, std::size_t row, bool enabled) = 0;

    /// Indices of rows, in their order.
    virtual std::vector<std::size_t> GetSelection() const = 0;
    /// Does not call back.
    virtual void SetSelection(const std::vector<std::size_t>& rows) = 0;

    /// The name of a tool strip among the host's resources.
    virtual void SetToolbar(const std::string& name) = 0;
    virtual void EnableCommand(unsigned command, bool enabled) = 0;
    virtual void CheckCommand(unsigned command, bool checked) = 0;
    /// Whether the user may remove the selected rows.
    virtual void EnableRemove(bool enabled) = 0;
    /// True when a menu is being made: AddMenuItem fills it.
    virtual bool BeginContextMenu() = 0;
    /// `source` says who has asked for the item, for the host's own use.
    virtual void AddMenuItem(bool checkable, bool checked, unsigned command,
                             const std::wstring& source) = 0;
    /// Nothing of the document can be changed while it is not.
    virtual void SetEnabled(bool enabled) = 0;
};
