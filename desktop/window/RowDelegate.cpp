#include "desktop/window/RowDelegate.h"

#include "desktop/window/TreeItemModel.h"

#include <QPainter>

#include <algorithm>

namespace desktop {

namespace {

/// Room above and below the letters together.
constexpr int c_rowRoom = 9;
/// Room between the letters of a cell and the line behind it.
constexpr int c_cellRoom = 4;

} // namespace

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    const bool isSection = TreeItemModel::RowOf(index).IsSection();
    if (!isSection && index.column() > 0)
        cell.rect.adjust(c_cellRoom, 0, -c_cellRoom, 0);
    QStyledItemDelegate::paint(painter, cell, index);
    if (isSection)
        return;
    QColor line = option.palette.color(QPalette::WindowText);
    line.setAlphaF(0.09F);
    painter->setPen(line);
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(std::max(size.height(), option.fontMetrics.height() + c_rowRoom));
    return size;
}

} // namespace desktop
