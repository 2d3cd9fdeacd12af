// The tree-table on the screen. It shows what the view in memory says is expanded, selected and how
// wide, and writes back what the user does about it, so that a rebuild finds everything as the user
// left it. Values are edited in their cells, and those of all selected rows in the heads.
#pragma once

#include "desktop/tree/EditorDraft.h"
#include "desktop/tree/RowDelegate.h"

#include <QMap>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTreeView>

#include <functional>
#include <optional>
#include <vector>

class IMenuItems;

namespace platform {
class TreeTableRow;
}

namespace desktop {

class HighlightedRows;
class PanelHead;
class RefusalNote;
class TreeItemModel;

class PanelTree final : public QTreeView {
    Q_OBJECT

public:
    explicit PanelTree(QWidget* parent = nullptr);

    /// The model may be null; it must outlive its stay here.
    void ShowModel(TreeItemModel* model);
    /// How high the tree must be to show its rows without scrolling.
    int HeightForRows() const;
    /// Widths that the user has chosen, by column id in pixels, and one of them given back.
    QMap<QString, int> GetUserWidths() const { return m_userWidths; }
    void SetUserWidth(const std::wstring& columnId, int width);
    /// How many rows the tree shows at once.
    int RowsThatFit() const;
    /// An editor of a cell or of a head is open, with what the user has typed so far.
    bool IsEditing() const;
    /// An open editor of a cell is closed as by Enter, one of a head as by Escape. False when an
    /// editor stays open, since what stands in it was refused.
    bool CommitEditor();
    /// The input that is being taken from an editor was refused, for that reason: the editor stays
    /// open, marked, with the reason beside it, until the input is mended or given up. Called from
    /// inside TreeItemModel::InputAnswered.
    void NoteRefusal(const QString& reason);
    /// Opens the editor in the head of the current column, if that offers one.
    void EditHead();
    /// Takes the value of the current cell away, whatever stands there.
    void ClearValue();
    /// As a click on the chain in the current cell, where there is one.
    void ClickSourceIcon();
    /// Where the first selected row stands; no value for none. When the selected rows have gone,
    /// the row that has come there is selected, unless another one is current.
    std::optional<QPoint> FindSelectedPlace() const;
    void SelectAt(QPoint place);
    /// From top to bottom, unfolded and the first of them in sight.
    void SelectRowsOf(const std::vector<platform::TreeTableRow*>& rows);
    /// As a click with the right button on the current cell, and on the head above it.
    void AskForCellMenu();
    void AskForHeadMenu();
    /// The current cell as its menu is asked for: no editor is open, and the row is selected.
    /// Invalid without a current row; no value while an editor stays open.
    std::optional<QModelIndex> TakeCellForMenu();
    /// A row that is one cell from end to end has the menu of its name anywhere.
    QModelIndex MenuCellOf(const QModelIndex& index) const;
    /// As a click on that box beside the name of the current row.
    void ClickAttribute(int columnId);
    /// As a click on the arrow at the end of the current cell, where there is one.
    void OpenMenuOfTexts();
    /// Lets the user edit the list that such a menu is made of, and answers the command of what he
    /// has picked there; no value for nothing. Without it no menu offers that.
    using ListEditor = std::function<std::optional<int>(const IMenuItems&)>;
    void SetListEditor(ListEditor editor) { m_listEditor = std::move(editor); }
    /// Those that are in sight, from top to bottom.
    std::vector<const platform::TreeTableRow*> FindRowsInSight() const;
    /// Something that the tip of a cell shows may be another by now.
    void RenewTip();
    HighlightedRows& GetHighlighted() const { return *m_highlighted; }

    using QTreeView::edit;

    // Names stay in view when the tree is scrolled sideways: the first column is drawn, found and
    // clicked at the left edge (PanelTreeNames.cpp).
    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& place) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

signals:
    void SelectedRowsChanged();
    /// The user has edited or clicked something; the document may have changed.
    void Edited();
    /// The user wants a menu, at that place on the screen. The cell's row is selected; the cell is
    /// invalid when no row is current.
    void CellMenuWanted(const QModelIndex& cell, QPoint place);
    void HeadMenuWanted(int column, QPoint place);
    /// The user wants to see what the assembly of the current row is built up of.
    void AssemblyOpened();
    /// An editor was closed. Another one may be open by now.
    void EditorLeft();
    /// The user has typed on a cell that can't be edited.
    void TypedInVain(const QString& column);
    /// The user wants the dialog in which the value of the current cell is made.
    void DialogWanted();
    /// Something else has taken the row away while the user was typing.
    void DraftLost(const QString& column);

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int x, int y) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Enter does what a click does: opens an editor, follows a link, gives a box its next state.
    void keyPressEvent(QKeyEvent* event) override;
    /// What is typed is for the current cell and never looks for a row.
    void keyboardSearch(const QString& text) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    /// Tab moves along the row and on to the next one.
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    /// Left and Right fold, also where the tree is scrolled aside.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void commitData(QWidget* editor) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    void ApplyRowStates();
    /// Collects the section rows on its way.
    void ApplyExpansion(const platform::TreeTableRow& row,
                        std::vector<const platform::TreeTableRow*>& sections);
    void ApplySelection();
    void ApplyWidths();
    void FitNameColumn();
    /// As told, but wide enough for the caption unless the user has chosen a width.
    int WidthOf(int column) const;
    void OnExpanded(const QModelIndex& index, bool expanded);
    void OnSelectionChanged();
    void OnColumnResized(int column, int width);
    /// Something in a cell does something when it is clicked there.
    bool HasSpotAt(QPoint place) const;
    /// The picture before the name of what can be opened stands there.
    bool IsOnIconOfAssembly(QPoint place) const;
    /// The next cell that can be edited, in this row or in those below it, or above it when
    /// `direction` is -1; `from` when there is none.
    QModelIndex NextEditable(const QModelIndex& from, int direction) const;
    QModelIndex Fold(const QModelIndex& from);
    QModelIndex Unfold(const QModelIndex& from);
    /// The selection is left alone unless the row is another one.
    void MakeCurrent(const QModelIndex& index);
    void EditCell(const QModelIndex& index);
    QModelIndex SelectForMenu(const QModelIndex& index);
    void OnSpotClicked(const QPersistentModelIndex& index, RowDelegate::Spot spot);
    /// Over what is scrolled there, as the base draws the first cell of a row.
    void DrawName(QPainter& painter, const QStyleOptionViewItem& row,
                  const QModelIndex& index) const;
    /// How far the names stand from their place in the row; 0 while they stand there.
    int NameShift() const;
    /// Calls the base's handler as if nothing was scrolled aside, where the mouse is on a name.
    template <class Handle>
    void HandleMouse(QMouseEvent& event, const Handle& handle);
    void OpenCurrent();
    void GiveHeadValue(int column, const QVariant& value, const QStringList& typed);
    void ClickHead(int column);
    /// Below the cell, and below the open editor of the head.
    void ShowCellTexts(const QPersistentModelIndex& cell);
    void ShowHeadTexts(int column);
    /// `take` gets the command of the chosen entry with its text.
    void ShowTexts(IMenuItems& texts, QPoint place,
                   const std::function<void(int command, const QString& text)>& take);
    /// The open editor of a cell; null for none.
    QWidget* CellEditorWidget() const;
    void HoldRefused(QWidget& editor);
    /// Back to the editor of which the input was refused.
    void ReturnToRefused();
    /// The rows are about to be replaced, and an open editor with them.
    void KeepDraft();
    /// The object that is edited stands in another row now, and another object in the editor's.
    bool IsEditedRowElsewhere() const;
    /// The rows were replaced: the editor opens again in the same cell.
    void OpenDraft();
    void ForgetRefused();
    /// What stands in a cell's editor is taken when the hint says so.
    void CloseEditors(QAbstractItemDelegate::EndEditHint hint);
    /// False for an editor that went with its row, and for one that is just being closed, which may
    /// tell once more that the user has left it.
    bool IsOpen(const QWidget& editor) const;
    void OnEdited();
    void ShowSelection();

    TreeItemModel* m_model = nullptr;
    RowDelegate* m_delegate;
    PanelHead* m_head;
    RefusalNote* m_refusalNote;
    HighlightedRows* m_highlighted;
    ListEditor m_listEditor;
    QWidget* m_closing = nullptr;
    QPersistentModelIndex m_edited;
    /// Of the input that is being taken; empty when it was not refused.
    QString m_refusal;
    /// What stood in an editor that went with its row.
    std::optional<EditorDraft> m_draft;
    /// The user has left the editor of which the input is being taken.
    bool m_isTaking = false;
    /// The open editor that holds a refused input.
    QPointer<QWidget> m_refused;
    /// The tree is being made to follow the view in memory: what it tells is no news.
    bool m_isFollowing = false;
    /// The user has chosen a width for the name; until then it takes the room that is left.
    bool m_isNameWidthChosen = false;
    QMap<QString, int> m_userWidths;
    /// Where the user was before the rows were replaced.
    int m_currentColumn = 0;
    std::optional<int> m_scrollPlace;
    /// Of the tip that was shown last: the cell that it was all about, else none.
    QPersistentModelIndex m_tipCell;
    QPoint m_tipPlace;
    QString m_tip;
    bool m_wasCurrentInSight = false;
};

} // namespace desktop
