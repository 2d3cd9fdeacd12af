// What the user does with documents: by buttons, keys and the menu, and with files that he drops.
#include "desktop/documents/DocumentList.h"
#include "desktop/documents/DocumentModel.h"
#include "desktop/documents/DocumentPane.h"
#include "desktop/icons/CommandLook.h"
#include "desktop/icons/MenuLetters.h"
#include "platform/view/TreeTableView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace desktop {

namespace {

constexpr unsigned c_open = 7749;
constexpr unsigned c_useFormat = 7750;
constexpr unsigned c_isSource = 7751;
constexpr unsigned c_add = 7783;
constexpr unsigned c_preview = 7784;
constexpr unsigned c_remove = 7785;
/// No command of the list.
constexpr unsigned c_edit = 0;

constexpr unsigned c_commandsWithKeys[] = {c_open, c_add, c_preview, c_remove};
const QKeySequence c_editKey(Qt::Key_F2);
const QKeySequence c_copyKey(Qt::CTRL | Qt::Key_C);
const QKeySequence c_pasteKey(Qt::CTRL | Qt::Key_V);

/// Keys of the window that are about rows of the tree, and have no meaning here.
constexpr QKeyCombination c_keysOfRows[] = {Qt::Key_Backspace, Qt::SHIFT | Qt::Key_F2,
                                            Qt::CTRL | Qt::Key_Return,
                                            Qt::CTRL | Qt::SHIFT | Qt::Key_F10};

QKeySequence KeyOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return event.key() == Qt::Key_Enter ? QKeyCombination(modifiers, Qt::Key_Return)
                                        : QKeyCombination(modifiers, Qt::Key(event.key()));
}

bool IsMenuKey(const QKeySequence& key) {
    return key == QKeySequence(Qt::Key_Menu) || key == QKeySequence(Qt::SHIFT | Qt::Key_F10);
}

QStringList FilesIn(const QMimeData& data) {
    QStringList files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            files += url.toLocalFile();
    }
    return files;
}

} // namespace

bool DocumentPane::IsKnownKey(const QKeyEvent& event) const {
    const QKeySequence key = KeyOf(event);
    return key == c_editKey || key == c_copyKey || key == c_pasteKey ||
           key == QKeySequence(Qt::Key_Escape) || IsMenuKey(key) ||
           std::ranges::count(c_keysOfRows, key) > 0 ||
           std::ranges::any_of(c_commandsWithKeys,
                               [&](unsigned command) { return KeyOfCommand(command) == key; });
}

bool DocumentPane::RunKey(const QKeyEvent& event) {
    const QKeySequence key = KeyOf(event);
    for (const unsigned command : c_commandsWithKeys) {
        if (KeyOfCommand(command) == key) {
            Run(command);
            return true;
        }
    }
    if (key == c_editKey)
        EditSelected();
    else if (key == c_copyKey)
        CopySelected();
    else if (key == c_pasteKey)
        Paste();
    else if (key == QKeySequence(Qt::Key_Escape))
        emit Left();
    else if (IsMenuKey(key))
        ShowMenu(m_list->MenuPlace());
    return IsKnownKey(event);
}

// The window's own keys for rows must not reach them from here.
bool DocumentPane::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && IsKnownKey(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

bool DocumentPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_list || !m_box)
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress)
        return RunKey(static_cast<QKeyEvent&>(*event));
    if (event->type() == QEvent::ContextMenu) {
        const auto& wanted = static_cast<QContextMenuEvent&>(*event);
        ShowMenu(wanted.reason() == QContextMenuEvent::Keyboard ? m_list->MenuPlace()
                                                                : wanted.globalPos());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void DocumentPane::keyPressEvent(QKeyEvent* event) {
    if (!m_box || !m_isOpen || !RunKey(*event))
        QWidget::keyPressEvent(event);
}

bool DocumentPane::CanRun(unsigned command) const {
    const platform::DocumentTable& table = m_box->GetDocuments();
    return command == c_remove ? table.IsRemoveEnabled() : table.IsCommandEnabled(command);
}

void DocumentPane::Run(unsigned command) {
    if (!CanRun(command)) {
        emit Told(TextOfCommand(command) + QStringLiteral(": ") + WhyNot(command));
    } else {
        emit Wanted(command, [this, command] {
            platform::DocumentTable& table = m_box->GetDocuments();
            command == c_remove ? table.RemoveByUser() : table.RunCommandByUser(command);
        });
    }
    // A button that was clicked shows another state, whatever came of it.
    UpdateLater();
}

void DocumentPane::EditSelected() {
    const std::wstring file = m_list->GetSelectedFile();
    if (!file.empty() && m_questions.canEdit && m_questions.canEdit(file))
        emit EditWanted(file);
    else
        emit Told(tr("Edit document: %1").arg(WhyNot(c_edit)));
}

// As a file manager takes and gives files.
void DocumentPane::CopySelected() {
    QList<QUrl> urls;
    for (const int row : m_list->GetSelectedRows()) {
        const std::wstring file = m_list->GetModel().FileAt(row);
        if (const QString path = m_questions.findPath ? m_questions.findPath(file) : QString();
            !path.isEmpty())
            urls += QUrl::fromLocalFile(path);
    }
    if (urls.isEmpty()) {
        emit Told(tr("Copy: no document is selected"));
        return;
    }
    auto* const copied = new QMimeData;
    copied->setUrls(urls);
    QApplication::clipboard()->setMimeData(copied);
    emit Told(urls.size() == 1 ? tr("1 file copied") : tr("%1 files copied").arg(urls.size()));
}

void DocumentPane::Paste() {
    const QMimeData* const copied = QApplication::clipboard()->mimeData();
    const QStringList files = copied ? FilesIn(*copied) : QStringList();
    if (!CanRun(c_add))
        emit Told(TextOfCommand(c_add) + QStringLiteral(": ") + WhyNot(c_add));
    else if (files.isEmpty())
        emit Told(TextOfCommand(c_add) + QStringLiteral(": ") + tr("no file has been copied"));
    else
        emit FilesDropped(files);
}

void DocumentPane::ShowMenu(QPoint place) {
    // The Menu key may arrive twice.
    if (m_menu && m_menu->isVisible())
        return;
    auto* const shown = new QMenu(m_list);
    connect(shown, &QMenu::aboutToHide, shown, &QObject::deleteLater);
    for (const platform::DocumentTable::MenuItem& item : m_box->GetDocuments().MakeMenu()) {
        const unsigned command = item.command;
        QAction* const action = shown->addAction(
            m_icons.Get(command), EntryOfCommand(TextOfCommand(command), KeyOfCommand(command)));
        action->setCheckable(item.isCheckable);
        action->setChecked(item.isChecked);
        // In a queue: the menu has closed by then.
        connect(
            action, &QAction::triggered, this,
            [this, command] {
                emit Wanted(command, [this, command] {
                    if (m_box)
                        m_box->GetDocuments().ChooseFromMenuByUser(command);
                });
            },
            Qt::QueuedConnection);
    }
    const std::wstring file = m_list->GetSelectedFile();
    if (!file.empty() && m_questions.canEdit && m_questions.canEdit(file)) {
        shown->addSeparator();
        connect(shown->addAction(EntryOfCommand(tr("Edit document"), c_editKey)),
                &QAction::triggered, this, &DocumentPane::EditSelected, Qt::QueuedConnection);
    }
    if (shown->isEmpty()) {
        delete shown;
        emit Told(tr("Documents: there is nothing to choose from, %1").arg(WhyNot(c_open)));
        return;
    }
    MarkLetters(shown->actions());
    m_menu = shown;
    shown->popup(place);
}

QString DocumentPane::WhyNot(unsigned command) const {
    const bool isReading = command == c_open || command == c_preview;
    if (!m_box->GetDocuments().IsEnabled() && !isReading)
        return tr("the product is read-only");
    if (m_view->GetSelectedRows().size() != 1)
        return tr("one row is to be selected in the tree");
    if (command == c_add)
        return tr("this row can't have documents");
    const int selected = m_list->CountSelected();
    if (selected == 0)
        return tr("no document is selected");
    const bool isOfOne = command != c_open && command != c_remove;
    if (isOfOne && selected > 1)
        return tr("not possible for several documents at once");
    for (const int row : m_list->GetSelectedRows()) {
        if (const QString reason = WhyNotFor(command, row); !reason.isEmpty())
            return reason;
    }
    return tr("not possible here");
}

QString DocumentPane::WhyNotFor(unsigned command, int row) const {
    const DocumentModel& model = m_list->GetModel();
    const std::wstring file = model.FileAt(row);
    if (command == c_open || command == c_preview) {
        const QString path = m_questions.findPath ? m_questions.findPath(file) : QString();
        return QFileInfo::exists(path) ? QString() : tr("the file is not there any more");
    }
    // In a product that can be edited all others can, too.
    if (m_questions.canEdit && !m_questions.canEdit(file))
        return tr("the part was made from this file");
    if (command == c_useFormat && model.TextOf(row, L"format").empty())
        return tr("the document has no sheet format");
    if (command == c_useFormat || command == c_isSource)
        return tr("the part can't take it over");
    return {};
}

QString DocumentPane::WhyEmpty() const {
    if (m_view->GetSelectedRows().size() != 1)
        return tr("Select one row to see its documents");
    if (CanRun(c_add))
        return tr("No documents. Press Insert or drop files here to add some.");
    return m_box->GetDocuments().IsEnabled() ? tr("This row can't have documents")
                                             : tr("No documents");
}

void DocumentPane::dragEnterEvent(QDragEnterEvent* event) {
    if (m_box && m_isOpen && CanRun(c_add) && !FilesIn(*event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

// In a queue: who the files come from must not wait for questions about them.
void DocumentPane::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    QMetaObject::invokeMethod(
        this, [this, files = FilesIn(*event->mimeData())] { emit FilesDropped(files); },
        Qt::QueuedConnection);
}

} // namespace desktop
