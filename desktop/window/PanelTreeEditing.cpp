// What the tree does with keys and clicks: moving along rows, folding, editing.
#include "desktop/window/PanelHead.h"
#include "desktop/window/PanelTree.h"
#include "desktop/window/TreeItemModel.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

namespace desktop {

bool PanelTree::HasSpotAt(QPoint place) const {
    const QModelIndex index = indexAt(place);
    if (!index.isValid())
        return false;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    return m_delegate->SpotAt(option, index, place) != RowDelegate::Spot::None;
}

void PanelTree::mouseMoveEvent(QMouseEvent* event) {
    QTreeView::mouseMoveEvent(event);
    viewport()->setCursor(HasSpotAt(event->position().toPoint()) ? Qt::PointingHandCursor
                                                                 : Qt::ArrowCursor);
}

void PanelTree::mouseDoubleClickEvent(QMouseEvent* event) {
    // Two clicks on what can be clicked are two clicks, and open no editor.
    if (HasSpotAt(event->position().toPoint()))
        mousePressEvent(event);
    else
        QTreeView::mouseDoubleClickEvent(event);
}

void PanelTree::OnSpotClicked(const QPersistentModelIndex& index, RowDelegate::Spot spot) {
    if (!index.isValid() || !m_model)
        return;
    switch (spot) {
    case RowDelegate::Spot::SourceIcon:
        m_model->ClickSourceIcon(index);
        break;
    case RowDelegate::Spot::Link:
        m_model->ClickLink(index);
        break;
    case RowDelegate::Spot::CheckBox:
        m_model->Toggle(index);
        break;
    case RowDelegate::Spot::None:
        return;
    }
    OnEdited();
}

bool PanelTree::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int direction = key == Qt::Key_Tab ? 1 : key == Qt::Key_Backtab ? -1 : 0;
        const QModelIndex current = currentIndex();
        // At the end of the row the key leaves the tree.
        if (direction && current.isValid() && NextEditable(current, direction) != current) {
            MakeCurrent(NextEditable(current, direction));
            return true;
        }
    }
    return QTreeView::event(event);
}

QModelIndex PanelTree::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return QTreeView::moveCursor(action, modifiers);
    switch (action) {
    case MoveLeft:
        return Fold(current);
    case MoveRight:
        return Unfold(current);
    default:
        return QTreeView::moveCursor(action, modifiers);
    }
}

QModelIndex PanelTree::Fold(const QModelIndex& from) {
    const QModelIndex row = from.siblingAtColumn(0);
    if (isExpanded(row) && m_model->hasChildren(row)) {
        collapse(row);
        return from;
    }
    const QModelIndex parent = row.parent();
    return parent.isValid() ? parent.siblingAtColumn(from.column()) : from;
}

QModelIndex PanelTree::Unfold(const QModelIndex& from) {
    const QModelIndex row = from.siblingAtColumn(0);
    if (!m_model->hasChildren(row))
        return from;
    if (isExpanded(row))
        return m_model->index(0, from.column(), row);
    expand(row);
    return from;
}

QModelIndex PanelTree::NextEditable(const QModelIndex& from, int direction) const {
    for (int place = header()->visualIndex(from.column()) + direction;
         place >= 0 && place < header()->count(); place += direction) {
        const QModelIndex next = from.siblingAtColumn(header()->logicalIndex(place));
        if (next.flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable))
            return next;
    }
    return from;
}

void PanelTree::EditCell(const QModelIndex& index) {
    setFocus();
    MakeCurrent(index);
    if (index.flags().testFlag(Qt::ItemIsEditable))
        edit(index);
}

void PanelTree::MakeCurrent(const QModelIndex& index) {
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

void PanelTree::EditHead() {
    m_head->OpenEditor(m_currentColumn);
}

void PanelTree::CommitEditor() {
    CloseEditors(QAbstractItemDelegate::SubmitModelCache);
}

void PanelTree::CloseEditors(QAbstractItemDelegate::EndEditHint hint) {
    m_head->CloseEditor();
    QWidget* const editor = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
    if (!editor)
        return;
    if (hint == QAbstractItemDelegate::SubmitModelCache)
        commitData(editor);
    closeEditor(editor, hint);
}

bool PanelTree::IsOpen(const QWidget& editor) const {
    return &editor != m_closing && !editor.isHidden();
}

void PanelTree::commitData(QWidget* editor) {
    if (!IsOpen(*editor))
        return;
    QTreeView::commitData(editor);
    OnEdited();
}

void PanelTree::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    if (editor == m_closing)
        return;
    const bool isByKey = hint != QAbstractItemDelegate::NoHint;
    const int direction = hint == QAbstractItemDelegate::EditNextItem       ? 1
                          : hint == QAbstractItemDelegate::EditPreviousItem ? -1
                                                                            : 0;
    // The rows may be others by now: where to go on is this tree's business, not the base's.
    if (IsOpen(*editor)) {
        const QScopedValueRollback closing(m_closing, editor);
        QTreeView::closeEditor(editor, direction ? QAbstractItemDelegate::NoHint : hint);
    }
    if (isByKey)
        setFocus();
    const QModelIndex from = currentIndex();
    const QModelIndex next = direction && from.isValid() ? NextEditable(from, direction) : from;
    if (next != from)
        EditCell(next);
}

void PanelTree::OnEdited() {
    // At once: until the tree shows what has become of the rows, clicks would meet others.
    m_model->TellChanges();
    emit Edited();
}

} // namespace desktop
