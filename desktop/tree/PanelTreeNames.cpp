// Names stay in view when the tree is scrolled sideways. The base knows nothing of it: what it asks
// and is told about places is moved by what the names are moved on the screen.
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"

#include <QAbstractItemDelegate>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

namespace desktop {

namespace {

/// Wider names would leave no room for what is scrolled.
constexpr double c_mostOfTheTree = 0.6;

} // namespace

int PanelTree::NameShift() const {
    // From right to left the names begin at the other edge, where they scroll as before.
    const bool hasRoom = m_model && !isRightToLeft() && header()->count() > 0 &&
                         header()->sectionSize(0) <= c_mostOfTheTree * viewport()->width();
    return hasRoom ? header()->offset() : 0;
}

void PanelTree::DrawName(QPainter& painter, const QStyleOptionViewItem& row,
                         const QModelIndex& index) const {
    QStyleOptionViewItem cell = row;
    cell.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    cell.state.setFlag(QStyle::State_HasFocus, hasFocus() && currentIndex() == index);
    // A section's one cell reaches from end to end, on a ground of its own.
    const bool isSection = TreeItemModel::RowOf(index).IsSection();
    const bool isAlternate = cell.features.testFlag(QStyleOptionViewItem::Alternate);
    cell.rect.setLeft(0);
    cell.rect.setWidth(isSection ? viewport()->width() : header()->sectionSize(0));
    const QRect whole = cell.rect;
    painter.save();
    painter.setClipRect(whole);
    painter.fillRect(whole, row.palette.brush(isSection || isAlternate ? QPalette::AlternateBase
                                                                       : QPalette::Base));
    style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &cell, &painter, this);
    cell.rect = visualRect(index);
    drawBranches(&painter, QRect(whole.topLeft(), QPoint(cell.rect.left() - 1, whole.bottom())),
                 index);
    itemDelegateForIndex(index)->paint(&painter, cell, index);
    painter.restore();
}

QRect PanelTree::visualRect(const QModelIndex& index) const {
    const QRect place = QTreeView::visualRect(index);
    // A row that is one cell from end to end stands at the left edge in any case.
    const bool isShifted = index.isValid() && index.column() == 0 &&
                           !isFirstColumnSpanned(index.row(), index.parent());
    return isShifted ? place.translated(NameShift(), 0) : place;
}

QModelIndex PanelTree::indexAt(const QPoint& place) const {
    const int shift = NameShift();
    const bool isOnName = shift != 0 && place.x() < header()->sectionSize(0);
    return QTreeView::indexAt(isOnName ? place - QPoint(shift, 0) : place);
}

void PanelTree::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const int before = horizontalScrollBar()->value();
    QTreeView::scrollTo(index, hint);
    const int shift = NameShift();
    if (!index.isValid() || shift == 0)
        return;
    if (index.column() == 0) {
        horizontalScrollBar()->setValue(before);
        return;
    }
    // Not behind the names.
    const int hidden = header()->sectionSize(0) - columnViewportPosition(index.column());
    if (hidden > 0)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - hidden);
}

void PanelTree::scrollContentsBy(int x, int y) {
    QTreeView::scrollContentsBy(x, y);
    // The base has moved the picture of the names as well.
    if (x != 0)
        viewport()->update();
}

} // namespace desktop
