// The tree-table on the screen. It shows what the view in memory says is expanded, selected and how
// wide, and writes back what the user does about it, so that a rebuild finds everything as the user
// left it. Values are edited in their cells, and those of all selected rows in the heads.
#pragma once

#include "desktop/window/RowDelegate.h"

#include <QTreeView>

#include <optional>
#include <vector>

namespace platform {
class TreeTableRow;
}

namespace desktop {

class PanelHead;
class TreeItemModel;

class PanelTree final : public QTreeView {
    Q_OBJECT

public:
    explicit PanelTree(QWidget* parent = nullptr);

    /// The model may be null; it must outlive its stay here.
    void ShowModel(TreeItemModel* model);
    /// How high the tree must be to show its rows without scrolling.
    int HeightForRows() const;
    /// An open editor is closed as by Enter.
    void CommitEditor();
    /// Opens the editor in the head of the current column, if that offers one.
    void EditHead();

signals:
    void SelectedRowsChanged();
    /// The user has edited or clicked something; the document may have changed.
    void Edited();

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    /// Tab moves along the row.
    bool event(QEvent* event) override;
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
    /// The next cell of the row that can be edited; `from` when there is none.
    QModelIndex NextEditable(const QModelIndex& from, int direction) const;
    QModelIndex Fold(const QModelIndex& from);
    QModelIndex Unfold(const QModelIndex& from);
    /// Leaves the selection alone.
    void MakeCurrent(const QModelIndex& index);
    void EditCell(const QModelIndex& index);
    void OnSpotClicked(const QPersistentModelIndex& index, RowDelegate::Spot spot);
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
    QWidget* m_closing = nullptr;
    /// The tree is being made to follow the view in memory: what it tells is no news.
    bool m_isFollowing = false;
    /// The user has chosen a width for the name; until then it takes the room that is left.
    bool m_isNameWidthChosen = false;
    /// Where the user was before the rows were replaced.
    int m_currentColumn = 0;
    std::optional<int> m_scrollPlace;
};

} // namespace desktop
