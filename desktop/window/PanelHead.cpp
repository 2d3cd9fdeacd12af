#include "desktop/window/PanelHead.h"

#include <QPainter>

namespace desktop {

namespace {

constexpr int c_sideRoom = 7;
constexpr int c_heightRoom = 12;

} // namespace

PanelHead::PanelHead(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(true);
    setHighlightSections(false);
}

void PanelHead::paintSection(QPainter* painter, const QRect& rect, int column) const {
    const int right = rect.right();
    const int bottom = rect.bottom();
    painter->fillRect(rect, palette().brush(QPalette::Button));
    painter->setPen(palette().color(QPalette::Mid));
    painter->drawLine(rect.left(), bottom, right, bottom);
    painter->drawLine(right, rect.top() + c_sideRoom, right, bottom - c_sideRoom);

    const QRect place = rect.adjusted(c_sideRoom, 0, -c_sideRoom, 0);
    const QString caption = model()->headerData(column, orientation()).toString();
    const int alignment = model()->headerData(column, orientation(), Qt::TextAlignmentRole).toInt();
    painter->setPen(palette().color(QPalette::ButtonText));
    painter->drawText(place, alignment | Qt::TextSingleLine,
                      fontMetrics().elidedText(caption, Qt::ElideRight, place.width()));
}

QSize PanelHead::sectionSizeFromContents(int column) const {
    const QString caption = model()->headerData(column, orientation()).toString();
    return {fontMetrics().horizontalAdvance(caption) + 2 * c_sideRoom,
            fontMetrics().height() + c_heightRoom};
}

} // namespace desktop
