#include "desktop/preview/LineSheet.h"

#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

constexpr double c_margin = 0.03;
/// A line has this width in a picture of that many pixels, and grows slower than the picture.
constexpr double c_usualWidth = 1.1;
constexpr double c_usualPixels = 400;

} // namespace

LineSheet::LineSheet(const QRectF& extent, const PreviewRequest& request) : m_ink(request.ink) {
    const double shortest = std::min(request.pixels.width(), request.pixels.height());
    m_lineWidth = request.scale * c_usualWidth *
                  std::clamp(std::sqrt(shortest / request.scale / c_usualPixels), 0.75, 2.0);
    const double margin = std::ceil(shortest * c_margin + m_lineWidth);
    const QSizeF room = QSizeF(request.pixels) - QSizeF(2 * margin, 2 * margin);
    // A drawing of a single line has no height.
    const double scale = std::min(room.width() / std::max(extent.width(), 1e-9),
                                  room.height() / std::max(extent.height(), 1e-9));
    const QSizeF drawn = extent.size() * scale;
    m_image = QImage(QSize(static_cast<int>(std::ceil(drawn.width() + 2 * margin)),
                           static_cast<int>(std::ceil(drawn.height() + 2 * margin)))
                         .boundedTo(request.pixels)
                         .expandedTo(QSize(1, 1)),
                     QImage::Format_ARGB32_Premultiplied);
    m_image.fill(Qt::transparent);
    m_place.translate(m_image.width() / 2.0, m_image.height() / 2.0);
    m_place.scale(scale, -scale);
    m_place.translate(-extent.center().x(), -extent.center().y());
    m_painter.begin(&m_image);
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setPen(MakePen());
}

QPen LineSheet::MakePen(double share, double strength) const {
    QColor ink = m_ink;
    ink.setAlphaF(static_cast<float>(strength));
    return {ink, m_lineWidth * share, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QImage LineSheet::Take() {
    m_painter.end();
    return m_image;
}

} // namespace desktop
