// The control as the view and the rows' items see it. The view gets it by SetController and calls
// it when the user has done something; the row that it was done in is named by its data.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace productTree {

class ProductTreeItemData;

/// The commands of the panel's tool strips, as IfProductTreeCtrl::OnToolbarCommand takes them.
enum PanelCommand : int {
    PanelCommandAddObject = 7745,
    PanelCommandDelete = 7746,
    PanelCommandUpdateAll = 7747,
    PanelCommandShowDocument = 7748,
    PanelCommandHighlight = 7752,
    PanelCommandCalculatePositions = 7766,
    PanelCommandHost = 7786,
};

/// A column that the user wants to see, or to see no more.
struct ColumnVisibility {
    std::wstring columnId;
    /// 0: not visible.
    std::int64_t visible;
};

/// Operations are declared in a fixed order, and each joins in its place with the work behind it.
/// Each reads from the view what the user has left there, writes it into the product data and
/// brings the view up to date before it returns: values are read again, or, where the product data
/// asks for it, all rows are built anew. An input that the product data does not take is put back.
/// None may be called while the view is being filled.
class IfProductTreeCtrl {
public:
    virtual ~IfProductTreeCtrl() = default;

    /// The user has given a command of the panel's tool strips (PanelCommand). Any other number is
    /// nothing, and so is a command that can't be given now. `data` is not used.
    virtual void OnToolbarCommand(int command, std::int64_t data) = 0;
    /// The user has done something in the list of documents (DocsListEvent). `data` is the id of a
    /// command where the event is one.
    virtual void OnDocsListEvent(int eventId, std::int64_t data) = 0;
    /// The view's selection has changed, by the user or by a call of the library.
    virtual void OnSelectionChanged() = 0;
    /// The user has moved or resized columns.
    virtual void OnColumnsChanged() = 0;
    /// The user has left the editor of the row's cell in that column.
    virtual void OnCellEdited(ProductTreeItemData& item, const std::wstring& columnId) = 0;
    /// The user has left the editor in the column's head.
    virtual void OnHeaderEdited(const std::wstring& columnId) = 0;
    /// The user has clicked one of the two check boxes beside the row's name.
    virtual void OnAggrIntoProductClicked(ProductTreeItemData& item) = 0;
    virtual void OnRegWithDescClicked(ProductTreeItemData& item) = 0;
    virtual void OnMarkingEdited(ProductTreeItemData& item) = 0;
    /// The user wants to choose the document code of all selected rows.
    virtual void OnDesignationCodeCommand() = 0;
    /// The user wants to choose the document code of the row's designation.
    virtual void OnEditDocCode(ProductTreeItemData& item) = 0;
    virtual void OnNameEdited(ProductTreeItemData& item) = 0;
    /// The user has clicked the link in the cell.
    virtual void OnCellHypertextActivated(ProductTreeItemData& item,
                                          const std::wstring& columnId) = 0;
    /// The user has clicked a column's head that is a link (ITreeViewHeads::InitLinkHeader).
    virtual void OnHeaderClicked(const std::wstring& columnId) = 0;
    virtual void OnCellSourceIconClicked(ProductTreeItemData& item,
                                         const std::wstring& columnId) = 0;
    /// The user asks for the menu of the row's cell: with one row selected, or none, it is that of
    /// this row; with several that of all of them. What he chooses arrives by
    /// LEventsHandler::OnCommand, when the menu has closed.
    virtual void OnItemContextMenu(ProductTreeItemData& item, const std::wstring& columnId) = 0;
    /// A command of the popup menu of the row's cell, and of a column's head.
    virtual void OnItemPopupCommand(ProductTreeItemData& item, const std::wstring& columnId,
                                    int command) = 0;
    virtual void OnHeaderPopupCommand(const std::wstring& columnId, int command) = 0;
    /// An empty list builds the panel anew.
    virtual void SetColumnsVisibility(const std::vector<ColumnVisibility>& columns) = 0;
    /// The user wants to choose columns and properties: the host's dialog.
    virtual void ManageProperties() = 0;
    /// The list of documents has come to be seen, or is no more: hidden at first. A hidden one
    /// reads nothing.
    virtual void SetDocsListVisible(bool visible) = 0;
    /// Embodiment mode has become possible, or impossible, where the panel stands. A mode that is
    /// left for that reason comes back when it is possible again.
    virtual void OnEmbodimentModeChanged(bool allowed) = 0;
    /// The user has turned the switch of embodiment mode.
    virtual void OnEmbodimentSwitch() = 0;
    /// The user has typed which embodiments he wants to see.
    virtual void OnEmbodimentFilterChanged() = 0;
    /// The user has ticked or unticked the line of that text in the list of embodiments.
    virtual void OnEmbodimentChecked(const std::wstring& text, bool checked) = 0;
    /// The user asks for the menu of a column's head.
    virtual void OnColumnContextMenu(const std::wstring& columnId) = 0;
};

} // namespace productTree
