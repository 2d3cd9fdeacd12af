// The colours and strokes that all drawings share.
#pragma once

#include <QColor>
#include <QLineF>
#include <QList>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QPolygonF>

#include <initializer_list>

namespace desktop::glyphs {

inline constexpr QColor c_steel(0x4A, 0x86, 0xC5);
inline constexpr QColor c_amber(0xE3, 0x9B, 0x2E);
inline constexpr QColor c_green(0x4F, 0x9D, 0x69);
inline constexpr QColor c_grey(0x7F, 0x8A, 0x96);
inline constexpr QColor c_brown(0xB0, 0x7A, 0x45);
inline constexpr QColor c_violet(0x7B, 0x68, 0xB8);
inline constexpr QColor c_teal(0x35, 0x93, 0x9B);
inline constexpr QColor c_paper(0xFB, 0xFC, 0xFD);
inline constexpr QColor c_folder(0xF2, 0xCF, 0x7E);
inline constexpr QColor c_folderEdge(0xC9, 0x9D, 0x3C);
inline constexpr QColor c_chain(0xBC, 0xC4, 0xCC);
inline constexpr QColor c_loose(0xD9, 0x6B, 0x1E);
inline constexpr QColor c_red(0xD2, 0x4B, 0x42);

inline void Fill(QPainter& painter, QColor color, std::initializer_list<QPointF> points) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(QPolygonF(QList<QPointF>(points)));
}

inline void Lines(QPainter& painter, QColor color, double width,
                  std::initializer_list<QLineF> lines) {
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
    painter.drawLines(QList<QLineF>(lines));
}

inline void StrokeOnly(QPainter& painter, QColor color, double width, Qt::PenStyle style) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, width, style, Qt::RoundCap, Qt::RoundJoin));
}

/// A link of a chain that runs from the lower left to the upper right; `place` is how far from the
/// middle of the picture its own middle lies.
inline void Link(QPainter& painter, QColor color, double place) {
    painter.save();
    painter.translate(8, 8);
    painter.rotate(-45);
    StrokeOnly(painter, color, 1.6, Qt::SolidLine);
    painter.drawRoundedRect(QRectF(place - 3.7, -2.2, 7.4, 4.4), 2.2, 2.2);
    painter.restore();
}

} // namespace desktop::glyphs
