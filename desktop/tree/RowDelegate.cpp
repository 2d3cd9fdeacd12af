#include "desktop/tree/RowDelegate.h"

#include "desktop/editors/LocaleNumbers.h"
#include "desktop/tree/AttributeBoxes.h"
#include "desktop/tree/CellLook.h"
#include "desktop/tree/GroupValues.h"
#include "desktop/tree/TreeItemModel.h"
#include "host/view/AttributeColumns.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace desktop {

namespace {

/// Room above and below the letters together.
constexpr int c_rowRoom = 9;
/// Room between the letters of a cell and the line behind it.
constexpr int c_cellRoom = 4;
constexpr int c_iconSize = 16;
constexpr int c_iconRoom = 4;
/// In a narrower cell the value has all the room, and the icon none.
constexpr int c_narrowestWithIcon = c_iconSize + 2 * c_iconRoom + 20;
constexpr float c_columnLine = 0.09F;
/// How much of the colour of selected letters is left where they are read-only.
constexpr float c_dimmed = 0.65F;
constexpr float c_plate = 0.85F;
constexpr double c_plateRound = 3;
/// Stands in the cell of a group whose members have different values.
constexpr QChar c_differs(0x2260);
/// How much of a box is seen that has no value.
constexpr double c_absent = 0.65;

bool HasRoomForIcon(const QStyleOptionViewItem& option) {
    return option.rect.width() >= c_narrowestWithIcon;
}

QStyle& StyleOf(const QStyleOptionViewItem& option) {
    return option.widget ? *option.widget->style() : *QApplication::style();
}

void Paint(QStyleOptionViewItem& option, const QColor& colour) {
    option.palette.setColor(QPalette::Text, colour);
}

void Dim(QStyleOptionViewItem& option) {
    Paint(option, option.palette.color(QPalette::PlaceholderText));
    QColor selected = option.palette.color(QPalette::HighlightedText);
    selected.setAlphaF(c_dimmed);
    option.palette.setColor(QPalette::HighlightedText, selected);
}

/// A light ground, without which the icons' colours are lost on that of the selection.
void PaintPlate(QPainter& painter, const QStyleOptionViewItem& option, const QRect& icon) {
    QColor ground = option.palette.color(QPalette::Base);
    ground.setAlphaF(c_plate);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(icon.adjusted(-1, -1, 1, 1), c_plateRound, c_plateRound);
    painter.restore();
}

/// Where the box of a truth value stands in the content of its cell; that of a count below and
/// above the numbers.
QRect BoxPlace(const QStyleOptionViewItem& cell, const QModelIndex& index) {
    const int size = StyleOf(cell).pixelMetric(QStyle::PM_IndicatorWidth, &cell, cell.widget);
    const bool isCount = TreeItemModel::HeadOf(index).kind == platform::HeadKind::Count;
    const int left = isCount ? cell.rect.center().x() - size / 2 : cell.rect.left() + c_cellRoom;
    return {left, cell.rect.center().y() - size / 2, size, size};
}

/// Beside the letters of a text, in its content.
int TextRoom(const QStyleOptionViewItem& option) {
    return StyleOf(option).pixelMetric(QStyle::PM_FocusFrameHMargin, &option) + 1;
}

/// Where in its content a text stands.
QRect TextPlace(const QStyleOptionViewItem& option, const QRect& content, const QString& text) {
    const int room = TextRoom(option);
    QRect place = content.adjusted(room, 0, -room, 0);
    const int width = std::min(option.fontMetrics.horizontalAdvance(text), place.width());
    if (option.displayAlignment.testFlag(Qt::AlignHCenter))
        return {place.center().x() - width / 2, place.top(), width, place.height()};
    if (option.displayAlignment.testFlag(Qt::AlignRight))
        place.setLeft(place.right() - width);
    else
        place.setWidth(width);
    return place;
}

/// A number that is cut in its middle looks like another number.
void FitNumber(QStyleOptionViewItem& option, const QModelIndex& index) {
    const platform::ColumnHead& head = TreeItemModel::HeadOf(index);
    if (!head.IsNumeric())
        return;
    option.textElideMode = Qt::ElideRight;
    const platform::TreeCell* const cell = TreeItemModel::RowOf(index).FindCell(head.id);
    if (!cell || cell->GetKind() != platform::CellKind::Double || !cell->HasValue())
        return;
    const int room = option.rect.width() - 2 * TextRoom(option);
    option.text = FormatNumber(cell->GetDouble(), [&](const QString& text) {
        return option.fontMetrics.horizontalAdvance(text) <= room;
    });
}

/// Letters and marks in the order in which they are read, whatever the direction of the window is.
void KeepReadingOrder(QStyleOptionViewItem& option) {
    constexpr QChar isolate(0x2067), end(0x2069);
    if (option.text.isRightToLeft())
        option.text = isolate + option.text + end;
}

/// A group of which the members differ must not look as if they had one value, or none.
void ShowGroup(QStyleOptionViewItem& option, const QModelIndex& index, const CellLook& look) {
    const auto state =
        GroupValues(TreeItemModel::RowOf(index), TreeItemModel::HeadOf(index)).GetState();
    if (state == GroupValues::State::List) {
        option.font.setItalic(true);
        Dim(option);
    }
    const bool isBox = index.data(Qt::CheckStateRole).isValid();
    const bool hasValue = look.kind != EditKind::None || look.link != LinkLook::None;
    if (state == GroupValues::State::Different && hasValue && !isBox) {
        option.text = c_differs;
        Dim(option);
    }
}

} // namespace

QRect RowDelegate::IconRoom(const QStyleOptionViewItem& option) {
    const QRect& rect = option.rect;
    return {rect.right() - c_iconRoom - c_iconSize, rect.center().y() - c_iconSize / 2 + 1,
            c_iconSize, c_iconSize};
}

QRect RowDelegate::IconOf(const QStyleOptionViewItem& option, const CellLook& look) const {
    const bool hasIcon = m_sourceIcons.Find(look.sourceIcon) && HasRoomForIcon(option);
    return hasIcon ? IconRoom(option) : QRect();
}

bool RowDelegate::IsIconDrawn(const QStyleOptionViewItem& option, const QModelIndex& index,
                              const CellLook& look) {
    if (!SourceIcons::IsBySource(look.sourceIcon))
        return true;
    const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
    const bool isCurrent =
        view && view->currentIndex().siblingAtColumn(0) == index.siblingAtColumn(0);
    return isCurrent || option.state.testFlag(QStyle::State_Selected) ||
           option.state.testFlag(QStyle::State_MouseOver);
}

QRect RowDelegate::ContentOf(const QStyleOptionViewItem& option, const QModelIndex& index,
                             const CellLook& look) const {
    QRect content = option.rect;
    if (index.column() > 0)
        content.adjust(c_cellRoom, 0, -c_cellRoom, 0);
    // Numbers stand below each other, whether their cell has an icon or not.
    const bool keepsRoom = TreeItemModel::HeadOf(index).IsNumeric() &&
                           TreeItemModel::HasSources(index) && HasRoomForIcon(option);
    if (keepsRoom || IconOf(option, look).isValid())
        content.setRight(IconRoom(option).left() - 1);
    if (const QRect arrow = ArrowOf(option, index, look); arrow.isValid())
        content.setRight(arrow.left() - 1);
    if (IsMenuArrowDrawn(option, index, look))
        content.setRight(MenuArrowOf(option, look).left() - 1);
    return content;
}

QRect RowDelegate::MenuArrowOf(const QStyleOptionViewItem& option, const CellLook& look) const {
    if (!look.menu)
        return {};
    QRect room = IconRoom(option);
    if (IconOf(option, look).isValid())
        room.translate(-c_iconSize - c_iconRoom, 0);
    return room;
}

bool RowDelegate::IsMenuArrowDrawn(const QStyleOptionViewItem& option, const QModelIndex& index,
                                   const CellLook& look) {
    const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
    if (!look.menu || !view)
        return false;
    return view->currentIndex() == index ||
           (option.state.testFlag(QStyle::State_MouseOver) &&
            option.rect.contains(view->viewport()->mapFromGlobal(QCursor::pos())));
}

QRect RowDelegate::ArrowOf(const QStyleOptionViewItem& option, const QModelIndex& index,
                           const CellLook& look) const {
    if (!HasRoomForIcon(option) || !TreeItemModel::CanOpen(index))
        return {};
    QRect room = IconRoom(option);
    if (IconOf(option, look).isValid())
        room.translate(-c_iconSize - c_iconRoom, 0);
    return room;
}

void RowDelegate::PaintArrow(QPainter& painter, const QStyleOptionViewItem& option,
                             QRect room) const {
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    QStyleOption arrow = option;
    arrow.rect = room.adjusted(3, 3, -3, -3);
    arrow.palette.setColor(
        QPalette::ButtonText,
        option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::PlaceholderText));
    arrow.palette.setColor(QPalette::WindowText, arrow.palette.color(QPalette::ButtonText));
    arrow.palette.setColor(QPalette::Text, arrow.palette.color(QPalette::ButtonText));
    StyleOf(option).drawPrimitive(QStyle::PE_IndicatorArrowRight, &arrow, &painter, option.widget);
}

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const CellLook look = TreeItemModel::LookOf(index);
    if (look.isReadOnly)
        Dim(*option);
    if (look.link != LinkLook::None) {
        option->font.setUnderline(true);
        // A place to click, where a click can come to anything.
        if (option->text.isEmpty() && !look.isReadOnly)
            option->text = tr("no value");
        if (look.link == LinkLook::Live)
            Paint(*option, option->palette.color(QPalette::Link));
        else
            Dim(*option);
    }
    if (look.isOutdated)
        option->font.setItalic(true);
    FitNumber(*option, index);
    ShowGroup(*option, index, look);
    KeepReadingOrder(*option);
    // Drawn by PaintBox.
    option->features.setFlag(QStyleOptionViewItem::HasCheckIndicator, false);
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    if (TreeItemModel::RowOf(index).IsSection()) {
        PaintSection(*painter, option, index);
        return;
    }
    const CellLook look = TreeItemModel::LookOf(index);
    const QStyleOptionViewItem beside = BesideBoxes(option, index);
    QStyleOptionViewItem cell = option;
    // The ground of the whole cell; what follows paints that of its content alone.
    StyleOf(cell).drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, cell.widget);
    cell.rect = ContentOf(beside, index, look);
    QStyledItemDelegate::paint(painter, cell, index);
    PaintBox(*painter, cell, index, look);
    if (const QRect icon = IconOf(beside, look);
        icon.isValid() && IsIconDrawn(option, index, look)) {
        if (option.state.testFlag(QStyle::State_Selected))
            PaintPlate(*painter, option, icon);
        m_sourceIcons.Find(look.sourceIcon)->paint(painter, icon);
    }
    if (const QRect arrow = ArrowOf(beside, index, look); arrow.isValid())
        PaintArrow(*painter, option, arrow);
    if (IsMenuArrowDrawn(option, index, look)) {
        const QRect arrow = MenuArrowOf(beside, look);
        PaintPlate(*painter, option, arrow);
        m_menuArrow.paint(painter, arrow);
    }
    if (index.column() == 0)
        BoxesOf(option, index).PaintRow(*painter, option, TreeItemModel::RowOf(index));
    QColor line = option.palette.color(QPalette::WindowText);
    line.setAlphaF(c_columnLine);
    painter->setPen(line);
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
}

void RowDelegate::PaintSection(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const AttributeBoxes boxes = BoxesOf(option, index);
    if (boxes.IsEmpty()) {
        QStyledItemDelegate::paint(&painter, option, index);
        return;
    }
    StyleOf(option).drawPrimitive(QStyle::PE_PanelItemViewItem, &option, &painter, option.widget);
    QStyledItemDelegate::paint(&painter, BesideBoxes(option, index), index);
    boxes.PaintRow(painter, option, TreeItemModel::RowOf(index));
}

AttributeBoxes RowDelegate::BoxesOf(const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    const auto& model = static_cast<const TreeItemModel&>(*index.model());
    const QRect names = m_namesPlace && index.column() == 0 ? m_namesPlace() : QRect();
    return {model.GetView(), names, option.direction};
}

QStyleOptionViewItem RowDelegate::BesideBoxes(const QStyleOptionViewItem& option,
                                              const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    if (index.column() == 0)
        cell.rect = BoxesOf(option, index).WithoutBoxes(option.rect);
    return cell;
}

int RowDelegate::AttributeOf(Spot spot) {
    return spot == Spot::AggrIntoProduct ? AttributeColumnAggrIntoProduct
                                         : AttributeColumnRegWithDesc;
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                            const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() == QEvent::ToolTip && index.isValid() && index.column() == 0) {
        const TreeItemModel& model = static_cast<const TreeItemModel&>(*index.model());
        const platform::TreeTableRow& row = TreeItemModel::RowOf(index);
        const std::optional<int> box = BoxesOf(option, index).FindAt(event->pos());
        if (box && AttributeBoxes::HasBox(row, *box)) {
            QToolTip::showText(event->globalPos(),
                               AttributeBoxes::MakeBoxTip(model.GetView(), row, *box), view);
            return true;
        }
    }
    if (event->type() == QEvent::ToolTip && index.isValid() &&
        SpotAt(option, index, event->pos()) == Spot::SourceIcon) {
        const bool isBySource = SourceIcons::IsBySource(TreeItemModel::LookOf(index).sourceIcon);
        QToolTip::showText(event->globalPos(),
                           isBySource ? tr("The value comes from the source. A click gives the row "
                                           "one of its own.")
                                      : tr("A value of its own. A click takes that of the source."),
                           view);
        return true;
    }
    if (event->type() == QEvent::ToolTip && index.isValid() &&
        SpotAt(option, index, event->pos()) == Spot::Assembly) {
        QToolTip::showText(event->globalPos(), tr("Opens the assembly (Alt+Down)"), view);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

void RowDelegate::PaintBox(QPainter& painter, const QStyleOptionViewItem& cell,
                           const QModelIndex& index, const CellLook& look) const {
    const QVariant checked = index.data(Qt::CheckStateRole);
    if (!checked.isValid())
        return;
    QStyleOptionViewItem box = cell;
    box.rect = BoxPlace(cell, index);
    // No value is an empty box that is hardly there; a row of them must not look like an answer.
    const bool hasValue = checked.toInt() != Qt::PartiallyChecked;
    const bool isMixed =
        !hasValue &&
        GroupValues(TreeItemModel::RowOf(index), TreeItemModel::HeadOf(index)).GetState() ==
            GroupValues::State::Different;
    box.state.setFlag(QStyle::State_On, checked.toInt() == Qt::Checked);
    box.state.setFlag(QStyle::State_NoChange, isMixed);
    box.state.setFlag(QStyle::State_Off, !isMixed && checked.toInt() != Qt::Checked);
    if (box.state.testFlag(QStyle::State_Selected))
        PaintPlate(painter, cell, box.rect);
    painter.save();
    painter.setOpacity(!hasValue && !isMixed ? c_absent : look.isReadOnly ? c_dimmed : 1);
    StyleOf(cell).drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, cell.widget);
    painter.restore();
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(std::max(size.height(), option.fontMetrics.height() + c_rowRoom));
    if (index.column() == 0)
        size.rwidth() += BoxesOf(option, index).GetWidth();
    return size;
}

RowDelegate::Spot RowDelegate::SpotAt(const QStyleOptionViewItem& whole, const QModelIndex& index,
                                      QPoint place) const {
    const platform::TreeTableRow& row = TreeItemModel::RowOf(index);
    if (const std::optional<int> box = BoxesOf(whole, index).FindAt(place)) {
        const auto& model = static_cast<const TreeItemModel&>(*index.model());
        if (!AttributeBoxes::CanClick(model.GetView(), row, *box))
            return Spot::None;
        return *box == AttributeOf(Spot::AggrIntoProduct) ? Spot::AggrIntoProduct
                                                          : Spot::RegWithDesc;
    }
    if (row.IsSection())
        return Spot::None;
    const QStyleOptionViewItem option = BesideBoxes(whole, index);
    const CellLook look = TreeItemModel::LookOf(index);
    if (IconOf(option, look).contains(place))
        return Spot::SourceIcon;
    if (ArrowOf(option, index, look).contains(place))
        return Spot::Assembly;
    if (MenuArrowOf(option, look).contains(place))
        return Spot::Menu;
    QStyleOptionViewItem cell = option;
    cell.rect = ContentOf(option, index, look);
    initStyleOption(&cell, index);
    if (look.link != LinkLook::None) {
        const QRect all =
            StyleOf(cell).subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget);
        return TextPlace(cell, all, cell.text).contains(place) ? Spot::Link : Spot::None;
    }
    if (look.kind == EditKind::Bool) {
        return BoxPlace(cell, index).contains(place) ? Spot::CheckBox : Spot::None;
    }
    return Spot::None;
}

bool RowDelegate::IsOnIcon(const QStyleOptionViewItem& option, const QModelIndex& index,
                           QPoint place) const {
    QStyleOptionViewItem cell = BesideBoxes(option, index);
    initStyleOption(&cell, index);
    return StyleOf(cell)
        .subElementRect(QStyle::SE_ItemViewItemDecoration, &cell, cell.widget)
        .contains(place);
}

bool RowDelegate::editorEvent(QEvent* event, QAbstractItemModel*,
                              const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() == QEvent::KeyPress) {
        const bool isToggle = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space &&
                              TreeItemModel::LookOf(index).kind == EditKind::Bool;
        if (isToggle)
            emit SpotClicked(index, Spot::CheckBox);
        return isToggle;
    }
    if (event->type() != QEvent::MouseButtonRelease)
        return false;
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    if (mouse.button() != Qt::LeftButton || mouse.modifiers() != Qt::NoModifier)
        return false;
    const Spot spot = SpotAt(option, index, mouse.position().toPoint());
    if (spot == Spot::None)
        return false;
    emit SpotClicked(index, spot);
    return true;
}

} // namespace desktop
