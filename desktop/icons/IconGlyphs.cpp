#include "desktop/icons/IconGlyphs.h"

#include "desktop/icons/GlyphTools.h"

#include <QColor>
#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPixmap>
#include <QPolygonF>

#include <cmath>
#include <initializer_list>
#include <numbers>

namespace desktop::glyphs {

namespace {

/// A cube seen from a corner, lit from the left above; `size` is the width of a side.
void Cube(QPainter& painter, QColor color, QPointF middle, double size) {
    const double half = size * 0.87;
    const double rise = size * 0.5;
    const QPointF top = middle - QPointF(0, 2 * rise);
    const QPointF left = middle - QPointF(half, rise);
    const QPointF right = middle + QPointF(half, -rise);
    const QPointF down(0, size);
    Fill(painter, color.lighter(135), {top, right, middle, left});
    Fill(painter, color, {left, middle, middle + down, left + down});
    Fill(painter, color.darker(135), {right, middle, middle + down, right + down});
}

/// A hexagon with a hole, a nut from above.
void Nut(QPainter& painter, QColor color) {
    QPainterPath path;
    for (int corner = 0; corner < 6; ++corner) {
        const double angle = corner * std::numbers::pi / 3;
        const QPointF point(8 + 6.8 * std::cos(angle), 8 + 6.8 * std::sin(angle));
        corner == 0 ? path.moveTo(point) : path.lineTo(point);
    }
    path.closeSubpath();
    path.addEllipse(QPointF(8, 8), 3, 3);
    painter.setBrush(color.lighter(125));
    painter.setPen(QPen(color.darker(125), 1.1));
    painter.drawPath(path);
}

/// A sheet of paper with a folded corner.
void Paper(QPainter& painter, QColor edge) {
    painter.setPen(QPen(edge, 1));
    painter.setBrush(c_paper);
    painter.drawPolygon(QPolygonF({{3, 1}, {9.5, 1}, {13, 4.5}, {13, 15}, {3, 15}}));
    Fill(painter, edge, {{9.5, 1}, {13, 4.5}, {9.5, 4.5}});
}

/// The size of a sheet, from corner to corner.
void Size(QPainter& painter) {
    Lines(painter, c_steel, 1.4, {{5.6, 11, 10.4, 5.6}});
    Fill(painter, c_steel, {{4.4, 9.2}, {4.4, 12.2}, {7.4, 12.2}});
    Fill(painter, c_steel, {{11.6, 7.4}, {11.6, 4.4}, {8.6, 4.4}});
}

/// A plate with a name on it.
void NamePlate(QPainter& painter) {
    painter.setPen(QPen(c_amber.darker(130), 1));
    painter.setBrush(c_amber);
    painter.drawRoundedRect(QRectF(1, 9.5, 14, 5.5), 1, 1);
    Lines(painter, Qt::white, 1.3, {{3.6, 12.2, 12.4, 12.2}});
}

/// A small mark at the lower right: an execution of the object, not the object itself.
void Badge(QPainter& painter) {
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(c_violet);
    painter.drawEllipse(QPointF(12, 12), 3.4, 3.4);
    Lines(painter, Qt::white, 1.2, {{10.6, 11.2, 13.4, 11.2}, {10.6, 12.9, 13.4, 12.9}});
}

} // namespace

QIcon MakeIcon(const std::function<void(QPainter&)>& draw) {
    QIcon made;
    for (const int size : {16, 20, 24, 32, 40, 48}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / c_grid, size / c_grid);
        draw(painter);
        painter.end();
        // A selected row must not take the colours of its icon, which tell kinds apart.
        made.addPixmap(pixmap);
        made.addPixmap(pixmap, QIcon::Selected);
    }
    return made;
}

void Nothing(QPainter&) {}

void Folder(QPainter& painter) {
    painter.setPen(QPen(c_folderEdge, 1));
    painter.setBrush(c_folder);
    painter.drawPolygon(QPolygonF({{1, 3}, {6, 3}, {7.5, 5}, {15, 5}, {15, 14}, {1, 14}}));
    Lines(painter, c_folder.lighter(115), 1, {{2, 6.2, 14, 6.2}});
}

void Part(QPainter& painter) {
    Cube(painter, c_steel, {8, 8}, 7);
}

void Assembly(QPainter& painter) {
    Cube(painter, c_amber, {10.2, 5.8}, 5.4);
    Cube(painter, c_steel, {5.3, 10.6}, 4.9);
}

void Complex(QPainter& painter) {
    Cube(painter, c_green, {8, 4.6}, 4.2);
    Cube(painter, c_amber, {4.2, 11}, 4.2);
    Cube(painter, c_steel, {11.8, 11}, 4.2);
}

void Phantom(QPainter& painter) {
    StrokeOnly(painter, c_grey, 1.2, Qt::DotLine);
    painter.drawPolygon(
        QPolygonF({{8, 1.5}, {14, 4.8}, {14, 11.4}, {8, 14.7}, {2, 11.4}, {2, 4.8}}));
    painter.drawPolyline(QPolygonF({{2, 4.8}, {8, 8.1}, {14, 4.8}}));
    painter.drawLine(QLineF(8, 8.1, 8, 14.7));
}

void EmbodiedPart(QPainter& painter) {
    Part(painter);
    Badge(painter);
}

void EmbodiedAssembly(QPainter& painter) {
    Assembly(painter);
    Badge(painter);
}

void StandardPart(QPainter& painter) {
    Nut(painter, c_grey);
}

void CataloguePart(QPainter& painter) {
    Nut(painter, c_green);
}

void Billet(QPainter& painter) {
    Fill(painter, c_brown, {{1.5, 9.5}, {10, 1.8}, {14.2, 6.4}, {5.7, 14.1}});
    painter.setPen(Qt::NoPen);
    painter.setBrush(c_brown.lighter(145));
    painter.save();
    painter.translate(3.6, 11.8);
    painter.rotate(-42);
    painter.drawEllipse(QPointF(0, 0), 1.9, 3.1);
    painter.restore();
}

void Material(QPainter& painter) {
    Fill(painter, c_teal.darker(125), {{1, 9.5}, {8, 6}, {15, 9.5}, {8, 13}});
    Fill(painter, c_teal, {{1, 6.5}, {8, 3}, {15, 6.5}, {8, 10}});
    Fill(painter, c_teal.lighter(140), {{1, 4}, {8, 0.5}, {15, 4}, {8, 7.5}});
}

void Kit(QPainter& painter) {
    Fill(painter, c_brown, {{2, 6}, {14, 6}, {14, 14}, {2, 14}});
    Fill(painter, c_brown.lighter(130), {{1, 3}, {15, 3}, {15, 6.4}, {1, 6.4}});
    Fill(painter, c_paper, {{7, 3}, {9, 3}, {9, 9}, {7, 9}});
}

void Library(QPainter& painter) {
    Fill(painter, c_steel, {{2, 2}, {5.4, 2}, {5.4, 14}, {2, 14}});
    Fill(painter, c_amber, {{6, 3.5}, {9.4, 3.5}, {9.4, 14}, {6, 14}});
    Fill(painter, c_green, {{10, 3}, {12.6, 2.4}, {15, 13.2}, {12.4, 13.8}});
}

void Other(QPainter& painter) {
    painter.setPen(QPen(c_grey.darker(120), 1));
    painter.setBrush(c_grey.lighter(150));
    painter.drawRoundedRect(QRectF(2, 2, 12, 12), 3, 3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(c_grey.darker(115));
    painter.drawEllipse(QPointF(8, 8), 2.4, 2.4);
}

void Sheet(QPainter& painter) {
    Paper(painter, c_grey);
    Lines(painter, c_grey, 1, {{5, 7.5, 11, 7.5}, {5, 10, 11, 10}, {5, 12.5, 9, 12.5}});
}

void Document(QPainter& painter) {
    Paper(painter, c_grey);
}

void FormatDocument(QPainter& painter) {
    Paper(painter, c_grey);
    Size(painter);
}

void NameDocument(QPainter& painter) {
    Paper(painter, c_grey);
    NamePlate(painter);
}

void SourceDocument(QPainter& painter) {
    Paper(painter, c_grey);
    painter.save();
    painter.translate(0.6, -2.6);
    painter.scale(0.92, 0.92);
    Size(painter);
    painter.restore();
    NamePlate(painter);
}

void Drawing(QPainter& painter) {
    painter.setPen(QPen(c_steel.darker(120), 1));
    painter.setBrush(c_paper);
    painter.drawRect(QRectF(1, 2.5, 14, 11));
    Fill(painter, c_steel.lighter(130), {{8.5, 10.5}, {15, 10.5}, {15, 13.5}, {8.5, 13.5}});
    StrokeOnly(painter, c_steel.darker(120), 1.1, Qt::SolidLine);
    painter.drawEllipse(QPointF(5.5, 7), 2.4, 2.4);
    painter.drawRect(QRectF(10, 4.8, 3, 4));
}

void PartsList(QPainter& painter) {
    Paper(painter, c_green.darker(110));
    Lines(painter, c_green, 1, {{5, 7, 11, 7}, {5, 9.5, 11, 9.5}, {5, 12, 11, 12}, {7, 6, 7, 13}});
}

void Report(QPainter& painter) {
    Paper(painter, c_violet);
    Fill(painter, c_violet.lighter(120), {{5, 11}, {6.6, 11}, {6.6, 13}, {5, 13}});
    Fill(painter, c_violet.lighter(120), {{7.3, 9}, {8.9, 9}, {8.9, 13}, {7.3, 13}});
    Fill(painter, c_violet.lighter(120), {{9.6, 7}, {11.2, 7}, {11.2, 13}, {9.6, 13}});
}

void Profile(QPainter& painter) {
    StrokeOnly(painter, c_teal.darker(110), 1.6, Qt::SolidLine);
    painter.drawPolygon(QPolygonF({{2, 13.5}, {2, 3}, {7, 3}, {7, 8}, {14, 8}, {14, 13.5}}));
}

void Circle(QPainter& painter) {
    StrokeOnly(painter, c_teal.darker(110), 1.6, Qt::SolidLine);
    painter.drawEllipse(QPointF(8, 8), 5.6, 5.6);
    Lines(painter, c_teal.darker(110), 0.8, {{8, 6, 8, 10}, {6, 8, 10, 8}});
}

void Text(QPainter& painter) {
    Lines(painter, c_teal.darker(110), 2, {{3, 3.2, 13, 3.2}, {8, 3.2, 8, 13.4}});
}

void Hatch(QPainter& painter) {
    StrokeOnly(painter, c_teal.darker(110), 1.3, Qt::SolidLine);
    painter.drawRect(QRectF(2, 2, 12, 12));
    Lines(painter, c_teal, 1, {{2, 8, 8, 2}, {2, 14, 14, 2}, {8, 14, 14, 8}});
}

void Axis(QPainter& painter) {
    Lines(painter, c_teal.darker(110), 1.5, {{4, 12, 4, 2.5}, {4, 12, 13.5, 12}, {4, 12, 11, 5}});
    painter.setPen(Qt::NoPen);
    painter.setBrush(c_amber);
    painter.drawEllipse(QPointF(4, 12), 1.9, 1.9);
}

void Dimension(QPainter& painter) {
    Lines(painter, c_grey, 1, {{2, 3, 2, 14}, {14, 3, 14, 14}});
    Lines(painter, c_teal.darker(110), 1.4, {{3, 6, 13, 6}});
    Fill(painter, c_teal.darker(110), {{2, 6}, {5, 4.2}, {5, 7.8}});
    Fill(painter, c_teal.darker(110), {{14, 6}, {11, 4.2}, {11, 7.8}});
}

void ClosedChain(QPainter& painter) {
    Link(painter, c_chain, -2.4);
    Link(painter, c_chain, 2.4);
}

void BrokenChain(QPainter& painter) {
    Link(painter, c_loose, -5);
    Link(painter, c_loose, 5);
    Lines(painter, c_loose, 1.2, {{4.6, 2.2, 5.8, 4.6}, {11.4, 13.8, 10.2, 11.4}});
}

void HalfChain(QPainter& painter) {
    Link(painter, c_chain, -2.4);
    Link(painter, c_loose, 4.4);
}

void Pencil(QPainter& painter) {
    Fill(painter, c_steel, {{10.2, 2.8}, {13.2, 5.8}, {5.8, 13.2}, {2.8, 10.2}});
    Fill(painter, c_steel.darker(130), {{2.3, 11}, {5, 13.7}, {1.6, 14.4}});
}

void Calendar(QPainter& painter) {
    painter.setPen(QPen(c_grey, 1));
    painter.setBrush(c_paper);
    painter.drawRect(QRectF(2.5, 3.5, 11, 10));
    Fill(painter, c_steel, {{2.5, 3.5}, {13.5, 3.5}, {13.5, 6.5}, {2.5, 6.5}});
    Lines(painter, c_grey, 1.4, {{5, 9, 5, 9}, {8, 9, 8, 9}, {11, 9, 11, 9}, {5, 11.5, 5, 11.5}});
}

void Down(QPainter& painter) {
    Fill(painter, c_grey, {{3.5, 6}, {12.5, 6}, {8, 11}});
}

} // namespace desktop::glyphs
