// How a cell of the panel is drawn: rows of one comfortable height, with thin lines between
// columns.
#pragma once

#include <QStyledItemDelegate>

namespace desktop {

class RowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace desktop
