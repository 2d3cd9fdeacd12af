// The tip of a cell may show what is still to come when it is opened. Then it is shown once more,
// in its place, as long as the mouse rests on the same cell.
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"

#include <QHelpEvent>
#include <QToolTip>

namespace desktop {

bool PanelTree::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const bool isShown = QTreeView::viewportEvent(event);
    m_tipPlace = help.globalPos();
    m_tip = QToolTip::text();
    // Boxes and arrows in the cell have tips of their own.
    const QModelIndex cell = indexAt(help.pos());
    m_tipCell = m_tip == cell.data(Qt::ToolTipRole).toString() ? cell : QModelIndex();
    return isShown;
}

void PanelTree::RenewTip() {
    if (!m_tipCell.isValid() || !QToolTip::isVisible() || QToolTip::text() != m_tip)
        return;
    const QString tip = m_tipCell.data(Qt::ToolTipRole).toString();
    if (tip == m_tip)
        return;
    const QRect cell = visualRect(m_tipCell);
    m_tip = tip;
    QToolTip::showText(m_tipPlace, tip, viewport(), cell);
}

std::vector<const platform::TreeTableRow*> PanelTree::FindRowsInSight() const {
    std::vector<const platform::TreeTableRow*> rows;
    const int bottom = viewport()->height();
    for (QModelIndex row = indexAt({1, 0}); row.isValid() && visualRect(row).top() < bottom;
         row = indexBelow(row))
        rows.push_back(&TreeItemModel::RowOf(row));
    return rows;
}

} // namespace desktop
