// How the user asks the tree for the menu of a cell or of a head, by mouse and by key.
#include "desktop/tree/PanelHead.h"
#include "desktop/tree/PanelTree.h"

#include <QContextMenuEvent>

#include <algorithm>

namespace desktop {

void PanelTree::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) {
        AskForCellMenu();
        return;
    }
    // Where the rows are by then: an input that is taken may move them.
    const QModelIndex index = CommitEditor() ? indexAt(event->pos()) : QModelIndex();
    if (index.isValid())
        emit CellMenuWanted(SelectForMenu(index), event->globalPos());
}

QModelIndex PanelTree::SelectForMenu(const QModelIndex& index) {
    // One of several selected rows stands for all of them.
    const bool isSelected = selectionModel()->isSelected(index);
    selectionModel()->setCurrentIndex(index, isSelected ? QItemSelectionModel::NoUpdate
                                                        : QItemSelectionModel::ClearAndSelect |
                                                              QItemSelectionModel::Rows);
    return MenuCellOf(index);
}

QModelIndex PanelTree::MenuCellOf(const QModelIndex& index) const {
    return index.isValid() && isFirstColumnSpanned(index.row(), index.parent())
               ? index.siblingAtColumn(0)
               : index;
}

std::optional<QModelIndex> PanelTree::TakeCellForMenu() {
    if (!CommitEditor())
        return std::nullopt;
    const QModelIndex current = currentIndex();
    return current.isValid() ? SelectForMenu(current) : current;
}

void PanelTree::AskForCellMenu() {
    const std::optional<QModelIndex> cell = TakeCellForMenu();
    if (!cell)
        return;
    scrollTo(*cell);
    const QRect place = visualRect(*cell);
    const int left = std::clamp(place.left(), 0, viewport()->width());
    emit CellMenuWanted(*cell, viewport()->mapToGlobal(QPoint(left, place.bottom() + 1)));
}

void PanelTree::AskForHeadMenu() {
    if (!CommitEditor() || m_currentColumn >= m_head->count())
        return;
    const int left = m_currentColumn == 0 ? 0 : m_head->sectionViewportPosition(m_currentColumn);
    const QPoint below(std::clamp(left, 0, viewport()->width()), m_head->height());
    emit HeadMenuWanted(m_currentColumn, m_head->mapToGlobal(below));
}

} // namespace desktop
