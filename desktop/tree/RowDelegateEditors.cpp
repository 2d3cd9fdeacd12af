// The editors that cells open: how they are made, what they give and where they stand.
#include "desktop/editors/DesignationEdit.h"
#include "desktop/editors/ValueEdits.h"
#include "desktop/tree/RowDelegate.h"
#include "desktop/tree/TreeItemModel.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

namespace desktop {

namespace {

constexpr int c_smallestEditor = 150;
constexpr int c_smallestNumberEditor = 80;

} // namespace

bool RowDelegate::eventFilter(QObject* editor, QEvent* event) {
    // Another window came to the front, perhaps a dialog that nobody asked for, or the editor's own
    // menu: it stays as it is until the user leaves it.
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason)
            return false;
    }
    // Shift and Enter types a line break; the base would take it for Enter.
    const bool isTyped = event->type() == QEvent::KeyPress && qobject_cast<TextEdit*>(editor) &&
                         TextEdit::TypesLineBreak(*static_cast<QKeyEvent*>(event));
    return !isTyped && QStyledItemDelegate::eventFilter(editor, event);
}

QWidget* RowDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                   const QModelIndex& index) const {
    QWidget* const editor = MakeEditor(TreeItemModel::EditorOf(index), parent);
    if (auto* line = qobject_cast<QLineEdit*>(editor))
        line->setFrame(true);
    if (auto* choice = qobject_cast<QComboBox*>(editor)) {
        connect(choice, &QComboBox::activated, this,
                [this, choice] { Finish(choice, SubmitModelCache); });
        QMetaObject::invokeMethod(choice, &QComboBox::showPopup, Qt::QueuedConnection);
    }
    if (auto* text = qobject_cast<TextEdit*>(editor)) {
        auto& self = const_cast<RowDelegate&>(*this);
        connect(text, &TextEdit::MenuWanted, this, [&self, cell = QPersistentModelIndex(index)] {
            emit self.SpotClicked(cell, Spot::Menu);
        });
    }
    if (auto* designation = qobject_cast<DesignationEdit*>(editor)) {
        connect(designation, &DesignationEdit::Left, this,
                [this, designation](EndEditHint hint) { Finish(designation, hint); });
    }
    return editor;
}

void RowDelegate::Finish(QWidget* editor, EndEditHint hint) const {
    auto& self = const_cast<RowDelegate&>(*this);
    if (hint != RevertModelCache)
        emit self.commitData(editor);
    emit self.closeEditor(editor, hint);
}

void RowDelegate::setEditorData(QWidget*, const QModelIndex&) const {}

void RowDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                               const QModelIndex& index) const {
    // The view commits an open editor again when the current row moves, which it may do because of
    // the edit; another object stands in the editor's row then.
    if (m_committed == editor)
        return;
    m_committed = editor;
    if (const std::optional<QVariant> input = TakeInput(*editor))
        model->setData(index, *input, Qt::EditRole);
}

void RowDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                       const QModelIndex& index) const {
    QRect place = option.rect;
    if (index.column() == 0) {
        QStyleOptionViewItem cell = BesideBoxes(option, index);
        initStyleOption(&cell, index);
        const QStyle& style = cell.widget ? *cell.widget->style() : *QApplication::style();
        place = style.subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget);
    }
    place.adjust(0, 0, 0, -1);
    // A narrow column is no reason not to see what one types. Numbers stay where they are.
    const bool isNumber = TreeItemModel::HeadOf(index).IsNumeric();
    const int smallest = std::max(isNumber ? c_smallestNumberEditor : c_smallestEditor,
                                  editor->minimumSizeHint().width());
    const int room = editor->parentWidget()->width();
    const int width = std::min(room, std::max(place.width(), smallest));
    const int left = isNumber ? place.right() - width + 1 : place.left();
    place.setWidth(width);
    place.moveLeft(std::clamp(left, 0, room - width));
    if (const auto* const designation = qobject_cast<const DesignationEdit*>(editor)) {
        const int bottom = editor->parentWidget()->height() - 1;
        const bool isInSight = place.bottom() <= bottom;
        place.setHeight(place.height() + designation->GetLabelHeight());
        // In the lowest row in sight the captions would stand below the edge.
        if (isInSight && place.bottom() > bottom)
            place.moveBottom(bottom);
    }
    editor->setGeometry(place);
}

} // namespace desktop
