#include "desktop/tree/PanelHead.h"

#include "desktop/editors/DesignationEdit.h"
#include "desktop/editors/ValueEdits.h"
#include "desktop/icons/IconGlyphs.h"
#include "desktop/tree/AttributeBoxes.h"
#include "desktop/tree/EditorDraft.h"
#include "desktop/tree/TreeItemModel.h"

#include <QApplication>
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
    if (m_rows < 2 || !model() || column < 0 || column >= count() || !Model().CanEditHead(column))
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
    if (Model().IsLinkHead(column)) {
        // Not from inside the click: the columns may go while the dialog is open.
        QMetaObject::invokeMethod(
            this, [this, column] { emit LinkClicked(column); }, Qt::QueuedConnection);
        return;
    }
    MakeEditorOf(column);
    ListenToEditor();
    m_editor->setFocus(Qt::OtherFocusReason);
}

void PanelHead::MakeEditorOf(int column) {
    EditorRequest request = Model().GetHeadEditor(column);
    if (request.kind == EditKind::Text && Model().AreMoments(column))
        request.kind = EditKind::Moment;
    request.hint =
        tr("%1 of %2 rows").arg(model()->headerData(column, orientation()).toString()).arg(m_rows);
    const bool isDesignation = request.kind == EditKind::Designation;
    // The names of the parts stand below the head, over the first row.
    m_editor = MakeEditor(request, isDesignation ? parentWidget() : viewport());
    m_column = column;
    m_editor->setToolTip(
        isDesignation
            ? tr("Enter replaces the designations of all %1 selected rows; a part that is left "
                 "empty is empty then")
                  .arg(m_rows)
            : tr("Enter gives the value to all %1 selected rows").arg(m_rows));
    m_editor->setGeometry(EditorPlace(column, *m_editor));
    m_editor->installEventFilter(this);
    m_editor->show();
}

void PanelHead::ListenToEditor() {
    // Not from inside the editor's own signal: it goes with its value.
    if (auto* const choice = qobject_cast<QComboBox*>(m_editor))
        connect(choice, &QComboBox::activated, this, &PanelHead::Give, Qt::QueuedConnection);
    if (auto* const text = qobject_cast<TextEdit*>(m_editor)) {
        connect(text, &TextEdit::MenuWanted, this, [this] { emit ListWanted(m_column); });
    }
    if (auto* const designation = qobject_cast<DesignationEdit*>(m_editor)) {
        connect(
            designation, &DesignationEdit::Left, this,
            [this](QAbstractItemDelegate::EndEditHint hint) {
                if (!m_editor)
                    return;
                if (hint == QAbstractItemDelegate::SubmitModelCache)
                    Give();
                else if (hint == QAbstractItemDelegate::EditNextItem ||
                         hint == QAbstractItemDelegate::EditPreviousItem)
                    OpenNext(hint == QAbstractItemDelegate::EditNextItem ? 1 : -1);
                else
                    CloseEditor();
            },
            Qt::QueuedConnection);
    }
}

void PanelHead::MoveEditor() {
    if (m_editor)
        m_editor->setGeometry(EditorPlace(m_column, *m_editor));
}

void PanelHead::CloseEditor() {
    QWidget* const editor = std::exchange(m_editor, nullptr);
    if (!editor)
        return;
    m_column = -1;
    editor->removeEventFilter(this);
    // Before it is hidden, which would hand the keys on to anybody.
    const QWidget* const focus = QApplication::focusWidget();
    if ((editor == focus || editor->isAncestorOf(focus)) && parentWidget())
        parentWidget()->setFocus();
    editor->hide();
    editor->deleteLater();
    emit EditorClosed();
}

QRect PanelHead::EditorPlace(int column, const QWidget& editor) const {
    const int smallest = std::max(c_smallestEditor, editor.minimumSizeHint().width());
    const int width = std::min(viewport()->width(), std::max(sectionSize(column) - 1, smallest));
    const int left = std::clamp(sectionViewportPosition(column), 0, viewport()->width() - width);
    const QRect place(left, 1, width, viewport()->height() - 2);
    const auto* const designation = qobject_cast<const DesignationEdit*>(&editor);
    if (!designation)
        return place;
    return {viewport()->mapTo(parentWidget(), place.topLeft()),
            QSize(width, place.height() + designation->GetLabelHeight())};
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
    QStringList typed;
    for (const QLineEdit* const line : LinesOf(*m_editor))
        typed += line->text();
    CloseEditor();
    if (value)
        emit ValueGiven(column, *value, typed);
}

void PanelHead::OpenNext(int direction) {
    int next = visualIndex(m_column) + direction;
    // A link would open its dialog.
    const auto isPassed = [this](int column) {
        return !IsOffered(column) || Model().IsLinkHead(column);
    };
    while (next >= 0 && next < count() && isPassed(logicalIndex(next)))
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
        const int column = logicalIndexAt(help.pos());
        if (column >= 0 && IsOffered(column) && Model().IsLinkHead(column)) {
            const QString caption = model()->headerData(column, orientation()).toString();
            QToolTip::showText(help.globalPos(),
                               tr("%1: a click opens the dialog for all %2 selected rows")
                                   .arg(caption)
                                   .arg(m_rows),
                               this);
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
    const bool isLink = isOffered && Model().IsLinkHead(column);
    painter->setPen(palette().color(isLink ? QPalette::Link : QPalette::ButtonText));
    if (isLink) {
        QFont underlined = painter->font();
        underlined.setUnderline(true);
        painter->setFont(underlined);
    }
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
