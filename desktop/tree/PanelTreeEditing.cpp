// What the tree does with keys and clicks: moving along rows, folding, editing.
#include "desktop/editors/ValueEdits.h"
#include "desktop/tree/PanelHead.h"
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/RefusalNote.h"
#include "desktop/tree/TreeItemModel.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <utility>

namespace desktop {

template <class Handle>
void PanelTree::HandleMouse(QMouseEvent& event, const Handle& handle) {
    const int shift = NameShift();
    const bool isOnName = shift != 0 && event.position().x() < header()->sectionSize(0);
    // The base looks for the name, and for the arrow before it, where the head has the column.
    if (isOnName)
        header()->setOffset(0);
    handle(event);
    if (isOnName)
        header()->setOffset(horizontalScrollBar()->value());
}

void PanelTree::mousePressEvent(QMouseEvent* event) {
    HandleMouse(*event, [this](QMouseEvent& moved) { QTreeView::mousePressEvent(&moved); });
}

void PanelTree::mouseReleaseEvent(QMouseEvent* event) {
    HandleMouse(*event, [this](QMouseEvent& moved) { QTreeView::mouseReleaseEvent(&moved); });
}

bool PanelTree::HasSpotAt(QPoint place) const {
    const QModelIndex index = indexAt(place);
    if (!index.isValid())
        return false;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    return m_delegate->SpotAt(option, index, place) != RowDelegate::Spot::None;
}

bool PanelTree::IsOnIconOfAssembly(QPoint place) const {
    const QModelIndex index = indexAt(place);
    if (!index.isValid() || index.column() != 0 || !TreeItemModel::CanOpen(index))
        return false;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    return m_delegate->IsOnIcon(option, index, place);
}

void PanelTree::mouseMoveEvent(QMouseEvent* event) {
    HandleMouse(*event, [this](QMouseEvent& moved) { QTreeView::mouseMoveEvent(&moved); });
    viewport()->setCursor(HasSpotAt(event->position().toPoint()) ? Qt::PointingHandCursor
                                                                 : Qt::ArrowCursor);
}

void PanelTree::mouseDoubleClickEvent(QMouseEvent* event) {
    // Two clicks on what can be clicked are two clicks, and open no editor.
    if (HasSpotAt(event->position().toPoint()))
        mousePressEvent(event);
    else if (IsOnIconOfAssembly(event->position().toPoint()))
        emit AssemblyOpened();
    else if (const QModelIndex cell = indexAt(event->position().toPoint());
             cell.isValid() && TreeItemModel::LookOf(cell).opensDialog)
        emit DialogWanted();
    else
        HandleMouse(*event,
                    [this](QMouseEvent& moved) { QTreeView::mouseDoubleClickEvent(&moved); });
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
    case RowDelegate::Spot::AggrIntoProduct:
    case RowDelegate::Spot::RegWithDesc:
        m_model->GetView().ClickAttributeByUser(TreeItemModel::RowOf(index),
                                                RowDelegate::AttributeOf(spot));
        break;
    case RowDelegate::Spot::Assembly:
        emit AssemblyOpened();
        return;
    case RowDelegate::Spot::Menu:
        ShowCellTexts(index);
        return;
    case RowDelegate::Spot::None:
        return;
    }
    OnEdited();
}

bool PanelTree::event(QEvent* event) {
    // The window has the same keys for something else.
    if (event->type() == QEvent::ShortcutOverride && currentIndex().isValid() &&
        TextEdit::OpensMenu(*static_cast<QKeyEvent*>(event)) &&
        TreeItemModel::LookOf(currentIndex()).menu) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int direction = key == Qt::Key_Tab ? 1 : key == Qt::Key_Backtab ? -1 : 0;
        const QModelIndex current = currentIndex();
        // Behind the last cell of all the key leaves the tree.
        if (direction && current.isValid() && NextEditable(current, direction) != current) {
            MakeCurrent(NextEditable(current, direction));
            return true;
        }
    }
    return QTreeView::event(event);
}

void PanelTree::keyPressEvent(QKeyEvent* event) {
    const QModelIndex current = currentIndex();
    // A key that an open editor has no use for comes here in the end.
    if (state() == EditingState && !hasFocus()) {
        QTreeView::keyPressEvent(event);
        return;
    }
    if (TextEdit::OpensMenu(*event) && current.isValid() && TreeItemModel::LookOf(current).menu) {
        OpenMenuOfTexts();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (current.isValid() && event->modifiers() == Qt::NoModifier) {
            OpenCurrent();
            return;
        }
        break;
    case Qt::Key_F2:
        if (current.isValid() && !(current.flags() & Qt::ItemIsEditable)) {
            OpenCurrent();
            return;
        }
        break;
    // The base folds by these, which are typed into cells as well.
    case Qt::Key_Asterisk:
    case Qt::Key_Plus:
    case Qt::Key_Minus:
        if (!edit(current, AnyKeyPressed, event))
            keyboardSearch(event->text());
        return;
    default:
        break;
    }
    QTreeView::keyPressEvent(event);
}

void PanelTree::keyboardSearch(const QString&) {
    if (!m_model || !currentIndex().isValid())
        return;
    if (TreeItemModel::LookOf(currentIndex()).opensDialog)
        emit DialogWanted();
    else
        emit TypedInVain(
            m_model->headerData(currentIndex().column(), Qt::Horizontal, Qt::DisplayRole)
                .toString());
}

bool PanelTree::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool isOpened = QTreeView::edit(index, trigger, event);
    if (isOpened && trigger != NoEditTriggers)
        m_edited = index;
    return isOpened;
}

void PanelTree::OpenCurrent() {
    const QModelIndex current = currentIndex();
    const CellLook look = TreeItemModel::LookOf(current);
    if (look.link != LinkLook::None)
        OnSpotClicked(current, RowDelegate::Spot::Link);
    else if (look.kind == EditKind::Bool)
        OnSpotClicked(current, RowDelegate::Spot::CheckBox);
    else if (look.opensDialog)
        emit DialogWanted();
    else if (current.flags() & Qt::ItemIsEditable)
        EditCell(current);
    else
        keyboardSearch({});
}

void PanelTree::ClearValue() {
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return;
    // What stands in an open editor goes with the value.
    CloseEditors(QAbstractItemDelegate::RevertModelCache);
    const EditorRequest editor = TreeItemModel::EditorOf(current);
    if (editor.kind == EditKind::None) {
        if (!TreeItemModel::LookOf(current).opensDialog)
            keyboardSearch({});
        return;
    }
    const bool isText = editor.kind == EditKind::Text || editor.kind == EditKind::Moment;
    m_model->setData(current, isText ? QVariant(QString()) : QVariant(), Qt::EditRole);
    OnEdited();
}

void PanelTree::ClickSourceIcon() {
    if (!CommitEditor())
        return;
    const QModelIndex current = currentIndex();
    if (current.isValid() && !TreeItemModel::LookOf(current).sourceIcon.IsEmpty())
        OnSpotClicked(current, RowDelegate::Spot::SourceIcon);
}

void PanelTree::ClickAttribute(int columnId) {
    if (!CommitEditor() || !currentIndex().isValid())
        return;
    m_model->GetView().ClickAttributeByUser(TreeItemModel::RowOf(currentIndex()), columnId);
    OnEdited();
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
    if (m_model->GetView().GetPanel().isReadOnly)
        return from;
    int place = header()->visualIndex(from.column()) + direction;
    for (QModelIndex row = from; row.isValid();
         row = direction > 0 ? indexBelow(row) : indexAbove(row)) {
        for (; place >= 0 && place < header()->count(); place += direction) {
            const QModelIndex next = row.siblingAtColumn(header()->logicalIndex(place));
            const CellLook look = TreeItemModel::LookOf(next);
            if (look.TakesValues() || (look.link != LinkLook::None && !look.isReadOnly))
                return next;
        }
        place = direction > 0 ? 0 : header()->count() - 1;
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
    const bool isSameRow = index.siblingAtColumn(0) == currentIndex().siblingAtColumn(0);
    selectionModel()->setCurrentIndex(index, isSameRow ? QItemSelectionModel::NoUpdate
                                                       : QItemSelectionModel::ClearAndSelect |
                                                             QItemSelectionModel::Rows);
}

void PanelTree::EditHead() {
    m_head->OpenEditor(m_currentColumn);
}

bool PanelTree::IsEditing() const {
    return CellEditorWidget() || m_draft || m_head->IsEditing();
}

QWidget* PanelTree::CellEditorWidget() const {
    QWidget* const editor =
        state() == EditingState && m_edited.isValid() ? indexWidget(m_edited) : nullptr;
    return editor && IsOpen(*editor) ? editor : nullptr;
}

bool PanelTree::CommitEditor() {
    CloseEditors(QAbstractItemDelegate::SubmitModelCache);
    return !IsEditing();
}

void PanelTree::CloseEditors(QAbstractItemDelegate::EndEditHint hint) {
    m_head->CloseEditor();
    QWidget* const editor = CellEditorWidget();
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
    // What has happened to the rows meanwhile comes first: the input is for the object that it was
    // typed for, and an editor that is not in its row any more opens again where that is.
    if (!m_isFollowing && !m_isTaking)
        m_model->TellChanges();
    if (!IsOpen(*editor) || editor == m_refused)
        return;
    std::optional<EditorDraft> draft;
    if (m_edited.isValid())
        draft.emplace(*editor, m_edited, QString());
    m_refusal.clear();
    {
        const QScopedValueRollback taking(m_isTaking, true);
        QTreeView::commitData(editor);
        OnEdited();
    }
    if (m_refusal.isEmpty() || !draft || qobject_cast<QComboBox*>(editor))
        return;
    if (IsOpen(*editor)) {
        HoldRefused(*editor);
        return;
    }
    // The rows were built anew although the input was refused.
    draft->SetRefusal(m_refusal);
    m_draft = std::move(draft);
    QMetaObject::invokeMethod(this, &PanelTree::OpenDraft, Qt::QueuedConnection);
}

void PanelTree::NoteRefusal(const QString& reason) {
    m_refusal = reason;
}

void PanelTree::HoldRefused(QWidget& editor) {
    m_refused = &editor;
    m_refusalNote->ShowBeside(editor, m_refusal);
    for (QLineEdit* const line : LinesOf(editor)) {
        connect(line, &QLineEdit::textEdited, this, &PanelTree::ForgetRefused,
                Qt::UniqueConnection);
    }
}

void PanelTree::ForgetRefused() {
    if (!m_refused)
        return;
    m_refused = nullptr;
    m_refusalNote->Hide();
    m_delegate->TakeAgain();
}

void PanelTree::ReturnToRefused() {
    if (!m_refused || !m_edited.isValid())
        return;
    selectionModel()->setCurrentIndex(m_edited, QItemSelectionModel::ClearAndSelect |
                                                    QItemSelectionModel::Rows);
    if (m_refused)
        m_refused->setFocus();
}

void PanelTree::KeepDraft() {
    QWidget* const editor = m_isTaking ? nullptr : CellEditorWidget();
    if (!editor)
        return;
    m_draft.emplace(*editor, m_edited, editor == m_refused ? m_refusal : QString());
    ForgetRefused();
}

bool PanelTree::IsEditedRowElsewhere() const {
    return !m_isTaking && CellEditorWidget() &&
           m_model->GetView().GetCurrent() != &TreeItemModel::RowOf(m_edited);
}

void PanelTree::OpenDraft() {
    const std::optional<EditorDraft> draft = std::exchange(m_draft, std::nullopt);
    if (!draft)
        return;
    if (const QModelIndex cell = draft->Find(currentIndex()); cell.isValid())
        EditCell(cell);
    QWidget* const editor = CellEditorWidget();
    if (!editor) {
        emit DraftLost(draft->GetCaption());
        emit EditorLeft();
        return;
    }
    draft->PutInto(*editor);
    m_refusal = draft->GetRefusal();
    if (!m_refusal.isEmpty())
        HoldRefused(*editor);
}

void PanelTree::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    if (editor == m_closing)
        return;
    if (editor == m_refused && hint != QAbstractItemDelegate::RevertModelCache) {
        // The user may be on his way to another row; his input is not.
        QMetaObject::invokeMethod(this, &PanelTree::ReturnToRefused, Qt::QueuedConnection);
        return;
    }
    ForgetRefused();
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
    emit EditorLeft();
}

void PanelTree::OnEdited() {
    // At once: until the tree shows what has become of the rows, clicks would meet others.
    m_model->TellChanges();
    emit Edited();
}

} // namespace desktop
