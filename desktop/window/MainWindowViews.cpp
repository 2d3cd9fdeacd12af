// What the window does about other windows with views of the same product.
#include "desktop/dialogs/DialogDecisions.h"
#include "desktop/documents/DocumentPane.h"
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"
#include "desktop/window/MainWindow.h"
#include "desktop/window/MassIndicator.h"
#include "desktop/window/WindowMemory.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>

namespace desktop {

namespace {

/// Where the next window stands: its title is seen beside that of the one before.
constexpr QPoint c_beside(32, 32);

} // namespace

void MainWindow::MakeWindowMenu() {
    QMenu* const window = menuBar()->addMenu(tr("&Window"));
    window->addAction(tr("&New View"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N), this,
                      &MainWindow::OpenView);
    window->addAction(tr("&Close"), QKeySequence::Close, this, &QWidget::close);
}

MainWindow* MainWindow::OpenView() {
    if (!m_tree->CommitEditor())
        return nullptr;
    auto* const view = new MainWindow;
    view->setAttribute(Qt::WA_DeleteOnClose);
    view->Show(m_session->MakeView());
    if (m_memory)
        view->m_memory = std::make_unique<WindowMemory>(m_memory->GetFile());
    view->m_documents->Restore(m_documents->GetState());
    view->setGeometry(geometry().translated(c_beside));
    Expand(view->m_session->GetView(), ListExpanded(m_session->GetView()));
    view->show();
    const QMap<QString, int> widths = m_tree->GetUserWidths();
    for (auto width = widths.begin(); width != widths.end(); ++width)
        view->m_tree->SetUserWidth(width.key().toStdWString(), *width);
    return view;
}

void MainWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && m_session) {
        m_session->Activate();
        m_slot.MakeCurrent();
    }
    QMainWindow::changeEvent(event);
}

// Shown when what is being done is over: a step is told of while it is made.
void MainWindow::OnProductChanged() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!m_session)
                return;
            ShowCaption();
            ShowState();
        },
        Qt::QueuedConnection);
}

void MainWindow::HandOverMasses() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        auto* const other = qobject_cast<MainWindow*>(widget);
        if (!other || other == this || !other->m_session || !other->isVisible() ||
            !other->m_session->IsOfSameProduct(*m_session))
            continue;
        other->StartMasses();
        return;
    }
}

} // namespace desktop
