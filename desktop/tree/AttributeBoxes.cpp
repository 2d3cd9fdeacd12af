#include "desktop/tree/AttributeBoxes.h"

#include "desktop/icons/IconGlyphs.h"
#include "host/view/AttributeColumns.h"
#include "platform/view/TreeTableView.h"

#include <QApplication>
#include <QKeySequence>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionViewItem>

#include <algorithm>

namespace desktop {

namespace {

using platform::TreeTableRow;
using platform::TreeTableView;

constexpr int c_slotWidth = 24;
/// Behind the last slot, before the line of the column.
constexpr int c_endRoom = 3;
/// A narrower name is worth more than the boxes.
constexpr int c_narrowestName = 60;
/// How much is seen of a box that can't be changed.
constexpr double c_readOnly = 0.45;
constexpr float c_dark = 0.5F;
constexpr float c_edge = 0.45F;

struct Column {
    int id;
    const char* caption;
    Qt::Key key;
    glyphs::Draw glyph;
};

// clang-format off
constexpr Column c_columns[] = {
    {AttributeColumnAggrIntoProduct, QT_TRANSLATE_NOOP("desktop::AttributeBoxes", "Aggregated into the product"),     Qt::Key_1, glyphs::Assembly},
    {AttributeColumnRegWithDesc,     QT_TRANSLATE_NOOP("desktop::AttributeBoxes", "Registered in the specification"), Qt::Key_2, glyphs::PartsList},
};
// clang-format on

const Column& ColumnOf(int id) {
    return *std::ranges::find(c_columns, id, &Column::id);
}

QString Translate(const char* text) {
    return QCoreApplication::translate("desktop::AttributeBoxes", text);
}

int StateOf(const TreeTableRow& row, int id) {
    return id == AttributeColumnAggrIntoProduct ? row.GetAggrIntoProductState()
                                                : row.GetRegWithDescState();
}

bool IsOff(int state) {
    return state == AttributeStateOff || state == AttributeStateOffReadOnly;
}

/// The row stands for others, and some of them are off.
bool HasOffBelow(const TreeTableRow& row, int id) {
    for (std::size_t i = 0; i < row.GetChildCount(); ++i) {
        const TreeTableRow& child = row.GetChildRow(i);
        if (IsOff(StateOf(child, id)) || HasOffBelow(child, id))
            return true;
    }
    return false;
}

QString StateText(const TreeTableRow& row, int id) {
    if (!AttributeBoxes::IsOn(row, id))
        return Translate("no");
    return HasOffBelow(row, id) ? Translate("some of them") : Translate("yes");
}

} // namespace

AttributeBoxes::AttributeBoxes(const TreeTableView& view, const QRect& names,
                               Qt::LayoutDirection direction)
    : m_view(view), m_names(names), m_direction(direction) {
    for (const int id : GetIds()) {
        if (IsShown(view, id))
            m_ids.push_back(id);
    }
    if (names.width() < GetWidth() + c_narrowestName)
        m_ids.clear();
}

const std::array<int, 2>& AttributeBoxes::GetIds() {
    static constexpr std::array ids = {c_columns[0].id, c_columns[1].id};
    return ids;
}

QString AttributeBoxes::CaptionOf(int id) {
    return Translate(ColumnOf(id).caption);
}

Qt::Key AttributeBoxes::KeyOf(int id) {
    return ColumnOf(id).key;
}

bool AttributeBoxes::IsShown(const TreeTableView& view, int id) {
    const platform::AttributeColumn column = view.GetAttributeColumn(id);
    return column.isEnabled && column.isShown;
}

bool AttributeBoxes::IsOn(const TreeTableRow& row, int id) {
    const int state = StateOf(row, id);
    return state == AttributeStateOn || state == AttributeStateOnReadOnly;
}

bool AttributeBoxes::HasBox(const TreeTableRow& row, int id) {
    return StateOf(row, id) != AttributeStateNone;
}

bool AttributeBoxes::CanClick(const TreeTableView& view, const TreeTableRow& row, int id) {
    const int state = StateOf(row, id);
    return IsShown(view, id) && !view.GetPanel().isReadOnly && !row.IsReadOnly() &&
           (state == AttributeStateOn || state == AttributeStateOff);
}

QString AttributeBoxes::MakeRowTip(const TreeTableView& view, const TreeTableRow& row) {
    QStringList lines;
    for (const int id : GetIds()) {
        if (IsShown(view, id) && HasBox(row, id))
            lines += QStringLiteral("%1: %2").arg(CaptionOf(id), StateText(row, id));
    }
    return lines.join(QLatin1Char('\n'));
}

QString AttributeBoxes::MakeBoxTip(const TreeTableView& view, const TreeTableRow& row, int id) {
    const QString how = CanClick(view, row, id)
                            ? Translate("A click or %1 changes it.")
                                  .arg(QKeySequence(Qt::CTRL | KeyOf(id)).toString())
                            : Translate("It can't be changed here.");
    return QStringLiteral("%1: %2. %3").arg(CaptionOf(id), StateText(row, id), how);
}

int AttributeBoxes::GetWidth() const {
    return m_ids.empty() ? 0 : static_cast<int>(m_ids.size()) * c_slotWidth + c_endRoom;
}

QRect AttributeBoxes::SlotOf(std::size_t slot) const {
    const QRect room(m_names.right() + 1 - GetWidth() + static_cast<int>(slot) * c_slotWidth,
                     m_names.top(), c_slotWidth, m_names.height());
    return QStyle::visualRect(m_direction, m_names, room);
}

QRect AttributeBoxes::PlaceOf(std::size_t slot, const QRect& row, int size) const {
    return {SlotOf(slot).left() + (c_slotWidth - size) / 2, row.center().y() - size / 2, size,
            size};
}

QRect AttributeBoxes::WithoutBoxes(const QRect& cell) const {
    if (IsEmpty())
        return cell;
    QRect left = cell;
    if (m_direction == Qt::RightToLeft)
        left.setLeft(std::max(cell.left(), m_names.left() + GetWidth()));
    else
        left.setRight(std::min(cell.right(), m_names.right() - GetWidth()));
    return left;
}

std::optional<int> AttributeBoxes::FindAt(QPoint place) const {
    for (std::size_t slot = 0; slot < m_ids.size(); ++slot) {
        const QRect room = SlotOf(slot);
        if (place.x() >= room.left() && place.x() <= room.right())
            return m_ids[slot];
    }
    return std::nullopt;
}

void AttributeBoxes::PaintRow(QPainter& painter, const QStyleOptionViewItem& option,
                              const TreeTableRow& row) const {
    const QStyle& style = option.widget ? *option.widget->style() : *QApplication::style();
    const int size = style.pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget);
    for (std::size_t slot = 0; slot < m_ids.size(); ++slot) {
        const int id = m_ids[slot];
        if (!HasBox(row, id))
            continue;
        const bool canClick = CanClick(m_view, row, id);
        QStyleOptionViewItem box = option;
        box.rect = PlaceOf(slot, option.rect, size);
        box.state.setFlag(QStyle::State_On, IsOn(row, id));
        box.state.setFlag(QStyle::State_Off, !IsOn(row, id));
        box.state.setFlag(QStyle::State_Enabled, canClick);
        box.state.setFlag(QStyle::State_HasFocus, false);
        box.state.setFlag(QStyle::State_MouseOver, false);
        painter.save();
        painter.setOpacity(canClick ? 1 : c_readOnly);
        if (option.state.testFlag(QStyle::State_Selected))
            painter.fillRect(box.rect, option.palette.color(QPalette::Base));
        style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, option.widget);
        // On a dark ground an empty box would not be seen.
        const QColor ground = option.palette.color(QPalette::Base);
        if (ground.lightnessF() < c_dark) {
            QColor edge = option.palette.color(QPalette::Text);
            edge.setAlphaF(c_edge);
            painter.setPen(edge);
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(box.rect.adjusted(0, 0, -1, -1));
        }
        painter.restore();
    }
}

void AttributeBoxes::PaintHead(QPainter& painter, const QRect& head) const {
    for (std::size_t slot = 0; slot < m_ids.size(); ++slot) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(PlaceOf(slot, head, static_cast<int>(glyphs::c_grid)).topLeft());
        ColumnOf(m_ids[slot]).glyph(painter);
        painter.restore();
    }
}

} // namespace desktop
