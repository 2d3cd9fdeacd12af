#include "desktop/tree/PanelHead.h"

#include "desktop/editors/CellEditors.h"
#include "desktop/icons/IconGlyphs.h"
#include "desktop/tree/AttributeBoxes.h"
#include "desktop/tree/TreeItemModel.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <optional>
#include <utility>

namespace desktop {

namespace {

constexpr int c_sideRoom = 7;
constexpr int c_heightRoom = 12;
constexpr int c_pencilSize = 12;
constexpr int c_pencilRoom = 5;
/// An editor is at least so wide, however narrow its column is.
constexpr int c_smallestEditor = 150;
constexpr float c_offeredTint = 0.09F;
/// How thick the line is below the head of what is worked on.
constexpr int c_activeLine = 2;

/// The font of that head; no value: the usual one.
std::optional<QFont> OwnFont(const QAbstractItemModel& model, int column) {
    const QVariant font = model.headerData(column, Qt::Horizontal, Qt::FontRole);
    return font.isValid() ? std::optional(font.value<QFont>()) : std::nullopt;
}

} // namespace

PanelHead::PanelHead(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), m_pencil(glyphs::MakeIcon(glyphs::Pencil)) {
    setHighlightSections(false);
    connect(this, &QHeaderView::sectionClicked, this, &PanelHead::OpenEditor);
    // An editor that stays where its column was would be taken for that of another.
    connect(this, &QHeaderView::geometriesChanged, this, &PanelHead::MoveEditor);
    connect(this, &QHeaderView::sectionResized, this, &PanelHead::MoveEditor);
}

const TreeItemModel& PanelHead::Model() const {
    return static_cast<const TreeItemModel&>(*model());
}

void PanelHead::OfferEditors(int rows) {
    m_takes.clear();
    viewport()->update();
    if (rows == m_rows)
        return;
    CloseEditor();
    m_rows = rows;
}

bool PanelHead::IsOffered(int column) const {
    if (m_rows < 2 || !model() || column < 0 || column >= count() ||
        Model().GetHeadEditor(column).kind == EditKind::None)
        return false;
    // Asked at each painting, and answered by a walk over the selected rows.
    m_takes.resize(static_cast<std::size_t>(count()));
    std::optional<bool>& takes = m_takes[static_cast<std::size_t>(column)];
    if (!takes)
        takes = Model().TakesFromHead(column);
    return *takes;
}

void PanelHead::OpenEditor(int column) {
    CloseEditor();
    if (!IsOffered(column))
        return;
    EditorRequest request = Model().GetHeadEditor(column);
    if (request.kind == EditKind::Text && Model().AreMoments(column))
        request.kind = EditKind::Moment;
    request.hint =
        tr("%1 of %2 rows").arg(model()->headerData(column, orientation()).toString()).arg(m_rows);
    m_editor = MakeEditor(request, viewport());
    m_column = column;
    m_editor->setToolTip(tr("Enter gives the value to all %1 selected rows").arg(m_rows));
    m_editor->setGeometry(EditorPlace(column, *m_editor));
    m_editor->installEventFilter(this);
    m_editor->show();
    m_editor->setFocus(Qt::OtherFocusReason);
    if (auto* choice = qobject_cast<QComboBox*>(m_editor)) {
        // Not from inside the choice's own signal: the editor goes with its value.
        connect(choice, &QComboBox::activated, this, &PanelHead::Give, Qt::QueuedConnection);
    }
}

void PanelHead::MoveEditor() {
    if (m_editor)
        m_editor->setGeometry(EditorPlace(m_column, *m_editor));
}

QLineEdit* PanelHead::GetLine() const {
    return qobject_cast<QLineEdit*>(m_editor);
}

void PanelHead::CloseEditor() {
    QWidget* const editor = std::exchange(m_editor, nullptr);
    if (!editor)
        return;
    m_column = -1;
    editor->removeEventFilter(this);
    // Before it is hidden, which would hand the keys on to anybody.
    if (editor->hasFocus() && parentWidget())
        parentWidget()->setFocus();
    editor->hide();
    editor->deleteLater();
    emit EditorClosed();
}

QRect PanelHead::EditorPlace(int column, const QWidget& editor) const {
    const int smallest = std::max(c_smallestEditor, editor.minimumSizeHint().width());
    const int width = std::min(viewport()->width(), std::max(sectionSize(column) - 1, smallest));
    const int left = std::clamp(sectionViewportPosition(column), 0, viewport()->width() - width);
    return {left, 1, width, viewport()->height() - 2};
}

bool PanelHead::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_editor)
        return QHeaderView::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress)
        return OnEditorKey(static_cast<QKeyEvent*>(event)->key());
    if (event->type() != QEvent::FocusOut)
        return false;
    // Leaving is no consent to change many rows at once. A menu or a list of the editor's is no
    // leaving, nor is another window that comes to the front.
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
        CloseEditor();
    return false;
}

bool PanelHead::OnEditorKey(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Give();
        return true;
    case Qt::Key_Escape:
        CloseEditor();
        return true;
    case Qt::Key_Tab:
        OpenNext(1);
        return true;
    case Qt::Key_Backtab:
        OpenNext(-1);
        return true;
    default:
        return false;
    }
}

void PanelHead::Give() {
    if (!m_editor)
        return;
    const std::optional<QVariant> value = TakeInput(*m_editor);
    const int column = m_column;
    const QString typed = GetLine() ? GetLine()->text() : QString();
    CloseEditor();
    if (value)
        emit ValueGiven(column, *value, typed);
}

void PanelHead::OpenNext(int direction) {
    int next = visualIndex(m_column) + direction;
    while (next >= 0 && next < count() && !IsOffered(logicalIndex(next)))
        next += direction;
    if (next >= 0 && next < count())
        OpenEditor(logicalIndex(next));
}

void PanelHead::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    if (count() == 0 || m_fixedShift() == 0)
        return;
    QPainter painter(viewport());
    paintSection(&painter, QRect(0, 0, sectionSize(0), viewport()->height()), 0);
}

bool PanelHead::IsOnFixedHead(const QMouseEvent& event) const {
    return count() > 0 && m_fixedShift() != 0 && event.position().x() < sectionSize(0);
}

QMouseEvent PanelHead::AtTheBase(const QMouseEvent& event) const {
    const QPointF shift(IsOnFixedHead(event) ? m_fixedShift() : 0, 0);
    return {event.type(),           event.position() - shift, event.scenePosition(),
            event.globalPosition(), event.button(),           event.buttons(),
            event.modifiers(),      event.pointingDevice()};
}

bool PanelHead::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip && count() > 0) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        const int left = sectionViewportPosition(0) + m_fixedShift();
        const AttributeBoxes boxes(Model().GetView(),
                                   QRect(left, 0, sectionSize(0), viewport()->height()),
                                   layoutDirection());
        if (const std::optional<int> id = boxes.FindAt(help.pos())) {
            QToolTip::showText(help.globalPos(), AttributeBoxes::CaptionOf(*id), this);
            return true;
        }
    }
    return QHeaderView::viewportEvent(event);
}

void PanelHead::mousePressEvent(QMouseEvent* event) {
    QMouseEvent moved = AtTheBase(*event);
    QHeaderView::mousePressEvent(&moved);
}

void PanelHead::mouseReleaseEvent(QMouseEvent* event) {
    QMouseEvent moved = AtTheBase(*event);
    QHeaderView::mouseReleaseEvent(&moved);
}

void PanelHead::mouseMoveEvent(QMouseEvent* event) {
    QMouseEvent moved = AtTheBase(*event);
    QHeaderView::mouseMoveEvent(&moved);
}

void PanelHead::contextMenuEvent(QContextMenuEvent* event) {
    const bool isOnFixed = count() > 0 && m_fixedShift() != 0 && event->pos().x() < sectionSize(0);
    const int column = isOnFixed ? 0 : logicalIndexAt(event->pos());
    if (column >= 0)
        emit MenuWanted(column, event->globalPos());
}

void PanelHead::paintSection(QPainter* painter, const QRect& rect, int column) const {
    const int right = rect.right();
    const int bottom = rect.bottom();
    const bool isOffered = IsOffered(column);
    painter->fillRect(rect, palette().brush(QPalette::Button));
    if (isOffered) {
        QColor tint = palette().color(QPalette::Highlight);
        tint.setAlphaF(c_offeredTint);
        painter->fillRect(rect, tint);
    }
    painter->setPen(palette().color(QPalette::Mid));
    painter->drawLine(rect.left(), bottom, right, bottom);
    painter->drawLine(right, rect.top() + c_sideRoom, right, bottom - c_sideRoom);

    QRect place = rect.adjusted(c_sideRoom, 0, -c_sideRoom, 0);
    if (column == 0) {
        const AttributeBoxes boxes(Model().GetView(), rect, layoutDirection());
        boxes.PaintHead(*painter, rect);
        place = boxes.WithoutBoxes(place);
    }
    if (isOffered && place.width() > 2 * c_pencilSize) {
        const QRect pencil(place.right() - c_pencilSize + 1,
                           rect.center().y() - c_pencilSize / 2 + 1, c_pencilSize, c_pencilSize);
        m_pencil.paint(painter, pencil);
        place.setRight(pencil.left() - c_pencilRoom);
    }
    const QString caption = model()->headerData(column, orientation()).toString();
    const int alignment = model()->headerData(column, orientation(), Qt::TextAlignmentRole).toInt();
    painter->setPen(palette().color(QPalette::ButtonText));
    if (const std::optional<QFont> own = OwnFont(*model(), column)) {
        painter->setFont(*own);
        painter->fillRect(rect.left(), bottom - c_activeLine + 1, rect.width() - 1, c_activeLine,
                          palette().brush(QPalette::Highlight));
    }
    painter->drawText(place, alignment | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(caption, Qt::ElideRight, place.width()));
}

QSize PanelHead::sectionSizeFromContents(int column) const {
    const QString caption = model()->headerData(column, orientation()).toString();
    const std::optional<QFont> own = OwnFont(*model(), column);
    const QFontMetrics letters = own ? QFontMetrics(*own) : fontMetrics();
    // With room for the pencil, so that the caption is whole when it is offered.
    return {letters.horizontalAdvance(caption) + 2 * c_sideRoom + c_pencilRoom + c_pencilSize,
            fontMetrics().height() + c_heightRoom};
}

} // namespace desktop
