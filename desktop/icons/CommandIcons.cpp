#include "desktop/icons/CommandIcons.h"

#include "desktop/icons/GlyphTools.h"
#include "desktop/icons/IconGlyphs.h"

#include <algorithm>
#include <iterator>

namespace desktop {

namespace {

using namespace glyphs;

/// Strokes on what they are drawn over, told apart from it by a thin edge.
void Edged(QPainter& painter, QColor color, std::initializer_list<QLineF> lines) {
    Lines(painter, c_paper, 4, lines);
    Lines(painter, color, 2.2, lines);
}

// What is done with the object, at the lower right.

void Plus(QPainter& painter) {
    Edged(painter, c_green, {{8.6, 11.8, 14.6, 11.8}, {11.6, 8.8, 11.6, 14.8}});
}

void Cross(QPainter& painter) {
    Edged(painter, c_red, {{9.2, 9.4, 14, 14.2}, {9.2, 14.2, 14, 9.4}});
}

void Tick(QPainter& painter) {
    Edged(painter, c_green, {{8.6, 11.8, 10.8, 14}, {10.8, 14, 14.8, 9.2}});
}

void SmallPencil(QPainter& painter) {
    Edged(painter, c_amber, {{9.4, 14.2, 14, 9.6}});
}

// The objects.

void RedCross(QPainter& painter) {
    Lines(painter, c_red, 2.6, {{3.6, 3.6, 12.4, 12.4}, {3.6, 12.4, 12.4, 3.6}});
}

void Chain(QPainter& painter) {
    Link(painter, c_steel, -2.6);
    Link(painter, c_steel, 2.6);
}

void LitRow(QPainter& painter) {
    Lines(painter, c_grey, 1.6, {{2.5, 2.6, 13.5, 2.6}, {2.5, 13.4, 13.5, 13.4}});
    Fill(painter, c_amber, {{1, 5.4}, {15, 5.4}, {15, 10.6}, {1, 10.6}});
    Lines(painter, c_paper, 1.6, {{4, 8, 12, 8}});
}

void NumberedRows(QPainter& painter) {
    StrokeOnly(painter, c_steel, 1.5, Qt::SolidLine);
    painter.drawPolyline(QPolygonF({{2.6, 2.9}, {4.2, 1.8}, {4.2, 6.8}}));
    painter.drawPolyline(
        QPolygonF({{2.2, 10}, {3.4, 9.2}, {4.8, 9.4}, {5, 10.8}, {2.2, 14.2}, {5.4, 14.2}}));
    Lines(painter, c_grey, 1.6, {{8, 4.4, 14, 4.4}, {8, 11.8, 14, 11.8}});
}

void TurningArrows(QPainter& painter) {
    constexpr int degree = 16;
    StrokeOnly(painter, c_green, 2, Qt::SolidLine);
    painter.drawArc(QRectF(2.8, 2.8, 10.4, 10.4), 40 * degree, 120 * degree);
    painter.drawArc(QRectF(2.8, 2.8, 10.4, 10.4), 220 * degree, 120 * degree);
    Fill(painter, c_green, {{14.8, 3}, {14, 8.2}, {9.6, 5.8}});
    Fill(painter, c_green, {{1.2, 13}, {2, 7.8}, {6.4, 10.2}});
}

void Calculator(QPainter& painter) {
    Fill(painter, c_grey, {{3, 1}, {13, 1}, {13, 15}, {3, 15}});
    Fill(painter, c_paper, {{4.6, 2.6}, {11.4, 2.6}, {11.4, 6}, {4.6, 6}});
    Lines(painter, c_paper, 1.6, {{5.3, 9, 5.5, 9}, {7.9, 9, 8.1, 9}, {10.5, 9, 10.7, 9}});
    Lines(painter, c_paper, 1.6, {{5.3, 12.2, 5.5, 12.2}, {7.9, 12.2, 8.1, 12.2}});
    Lines(painter, c_amber, 1.8, {{10.5, 12.2, 10.7, 12.2}});
}

/// A value on its way between a row and its source.
void ArrowUp(QPainter& painter) {
    Lines(painter, c_grey, 1.8, {{2.5, 2, 13.5, 2}});
    Fill(painter, c_steel,
         {{8, 4.2}, {12.4, 9}, {9.6, 9}, {9.6, 14.6}, {6.4, 14.6}, {6.4, 9}, {3.6, 9}});
}

void ArrowDown(QPainter& painter) {
    Lines(painter, c_grey, 1.8, {{2.5, 2, 13.5, 2}});
    Fill(painter, c_steel,
         {{8, 14.6}, {12.4, 9.8}, {9.6, 9.8}, {9.6, 4.2}, {6.4, 4.2}, {6.4, 9.8}, {3.6, 9.8}});
}

void Columns(QPainter& painter) {
    Fill(painter, c_steel, {{1.5, 2}, {5, 2}, {5, 14}, {1.5, 14}});
    Fill(painter, c_amber, {{6.2, 2}, {9.8, 2}, {9.8, 14}, {6.2, 14}});
    Fill(painter, c_steel, {{11, 2}, {14.5, 2}, {14.5, 14}, {11, 14}});
}

/// Out of its box, into another program.
void OpenedDocument(QPainter& painter) {
    Document(painter);
    Lines(painter, c_paper, 4.6, {{6, 11.6, 12, 5.6}});
    Lines(painter, c_steel, 2, {{5.6, 12, 12.4, 5.2}});
    Fill(painter, c_steel, {{14.6, 3}, {13.8, 9}, {8.6, 3.8}});
}

/// A picture in its frame.
void Picture(QPainter& painter) {
    painter.setPen(QPen(c_grey, 1.2));
    painter.setBrush(c_paper);
    painter.drawRect(QRectF(1.5, 2.5, 13, 11));
    Fill(painter, c_green, {{2.6, 12.4}, {6.4, 6.6}, {9, 10}, {10.6, 8.4}, {13.4, 12.4}});
    painter.setPen(Qt::NoPen);
    painter.setBrush(c_amber);
    painter.drawEllipse(QPointF(11.2, 5.6), 1.5, 1.5);
}

struct IconRow {
    unsigned command;
    Draw object;
    /// Null for none.
    Draw badge;
};

// clang-format off
constexpr IconRow c_icons[] = {
    {7745, Part,           Plus},
    {7746, RedCross,       nullptr},
    {7747, TurningArrows,  nullptr},
    {7752, LitRow,         nullptr},
    {7766, NumberedRows,   nullptr},
    {7753, Chain,          Plus},
    {7755, Chain,          SmallPencil},
    {7754, Chain,          Cross},
    {7757, Billet,         nullptr},
    {7764, Billet,         Plus},
    {7758, Sheet,          nullptr},
    {7759, Calculator,     nullptr},
    {7765, ArrowUp,        nullptr},
    {7789, ArrowDown,      nullptr},
    {7020, Assembly,       nullptr},
    {7763, Complex,        nullptr},
    {5707, Drawing,        nullptr},
    {7783, Document,       Plus},
    {7785, Document,       Cross},
    {7749, OpenedDocument, nullptr},
    {7751, NameDocument,   nullptr},
    {7750, FormatDocument, nullptr},
    {7784, Picture,        nullptr},
    {7790, Columns,        Cross},
    {7795, Columns,        SmallPencil},
    {7791, Assembly,       Tick},
    {7792, Assembly,       Cross},
    {7793, PartsList,      Tick},
    {7794, PartsList,      Cross},
};
// clang-format on

} // namespace

const QIcon& CommandIcons::Get(unsigned command) const {
    const auto [icon, isNew] = m_icons.try_emplace(command);
    const auto* const row = std::ranges::find(c_icons, command, &IconRow::command);
    if (isNew && row != std::end(c_icons)) {
        icon->second = MakeIcon([row](QPainter& painter) {
            row->object(painter);
            if (row->badge)
                row->badge(painter);
        });
    }
    return icon->second;
}

std::vector<unsigned> CommandIcons::GetCommands() {
    std::vector<unsigned> commands;
    for (const IconRow& row : c_icons)
        commands.push_back(row.command);
    return commands;
}

} // namespace desktop
