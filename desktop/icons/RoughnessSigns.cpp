#include "desktop/icons/RoughnessSigns.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <algorithm>
#include <numbers>

namespace desktop {

namespace {

/// The legs rise at 60 degrees: so far aside for each step up.
constexpr double c_aside = 1 / std::numbers::sqrt3;
/// Of the height of the whole sign, as the standard has 5 to 10.5 for its legs.
constexpr double c_shortLeg = 5 / 10.5;
constexpr double c_room = 0.08;
/// Between the letters and the lines around them, in heights of a letter.
constexpr double c_gap = 0.25;

struct Shape {
    /// Where the legs meet.
    QPointF tip;
    double height = 0;

    QPointF At(double x, double up) const { return {tip.x() + x, tip.y() - up}; }
};

void DrawSign(QPainter& painter, const Shape& shape, RoughnessSign sign) {
    const double low = shape.height * c_shortLeg;
    const QPointF left = shape.At(-low * c_aside, low);
    painter.drawPolyline(
        QPolygonF({left, shape.tip, shape.At(shape.height * c_aside, shape.height)}));
    if (sign == RoughnessSign::Machined)
        painter.drawLine(left, shape.At(low * c_aside, low));
    // It touches both legs and the line on which the bar would be.
    if (sign == RoughnessSign::NotMachined)
        painter.drawEllipse(shape.At(0, low * 2 / 3), low / 3, low / 3);
}

} // namespace

void DrawRoughness(QPainter& painter, const QRectF& frame, RoughnessSign sign,
                   const QString& text) {
    const QFontMetricsF metrics(painter.font());
    const double gap = metrics.height() * c_gap;
    const double room = std::min(frame.width(), frame.height()) * c_room;
    const QRectF inner = frame.adjusted(room, room, -room, -room);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    if (sign == RoughnessSign::None) {
        const QString shown = metrics.elidedText(text, Qt::ElideRight, inner.width());
        painter.drawText(inner, Qt::AlignCenter, shown);
        return;
    }
    const double left = inner.height() * c_shortLeg * c_aside;
    const double right = inner.height() * c_aside;
    const double longest = std::max(0.0, inner.width() - left - right - gap);
    const QString shown = metrics.elidedText(text, Qt::ElideRight, longest);
    const double shelf = shown.isEmpty() ? 0 : metrics.horizontalAdvance(shown) + gap;
    const double start = inner.center().x() - (left + right + shelf) / 2;
    const Shape shape{{start + left, inner.bottom()}, inner.height()};
    DrawSign(painter, shape, sign);
    if (shown.isEmpty())
        return;
    const QPointF corner = shape.At(right, shape.height);
    painter.drawLine(corner, corner + QPointF(shelf, 0));
    painter.drawText(QPointF(corner.x() + gap / 2, corner.y() + gap + metrics.ascent()), shown);
}

QIcon MakeRoughnessIcon(RoughnessSign sign, const QSize& size, const QPalette& palette,
                        double pixelRatio) {
    QIcon icon;
    for (const auto& [mode, colour] :
         {std::pair(QIcon::Normal, palette.text().color()),
          std::pair(QIcon::Selected, palette.text().color()),
          std::pair(QIcon::Disabled, palette.placeholderText().color())}) {
        QPixmap picture(size * pixelRatio);
        picture.setDevicePixelRatio(pixelRatio);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        DrawRoughness(painter, QRectF(QPointF(), size), sign, {});
        painter.end();
        icon.addPixmap(picture, mode);
    }
    return icon;
}

} // namespace desktop
