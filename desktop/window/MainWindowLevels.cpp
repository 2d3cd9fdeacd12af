// What the window does about the levels of a product with assemblies in it: going into an assembly
// and back, and finding everything there as it was left.
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"
#include "desktop/window/LevelBar.h"
#include "desktop/window/MainWindow.h"
#include "desktop/window/WindowMemory.h"

#include <QActionGroup>
#include <QMenu>
#include <QScrollBar>
#include <QStatusBar>

#include <utility>

namespace desktop {

void MainWindow::AddLevelActions(QMenu& view) {
    m_open = view.addAction(tr("&Open Assembly"), this, &MainWindow::OpenAssembly);
    m_open->setShortcuts(
        {QKeySequence(Qt::ALT | Qt::Key_Down), QKeySequence(Qt::ALT | Qt::Key_Return)});
    m_up = view.addAction(tr("Back &Up"), QKeySequence(Qt::ALT | Qt::Key_Up), this,
                          [this] { GoBack(static_cast<int>(m_session->GetWay().size()) - 2); });
    auto* const parts = new QActionGroup(this);
    m_direct = view.addAction(tr("&Direct Components"), this, [this] { ShowAllParts(false); });
    m_allParts = view.addAction(tr("All &Parts"), this, [this] { ShowAllParts(true); });
    for (QAction* const action : {m_direct, m_allParts}) {
        action->setCheckable(true);
        parts->addAction(action);
    }
    view.addSeparator();
}

void MainWindow::ShowLevel() {
    const bool hasLevels = m_session->HasLevels();
    const platform::TreeTableRow* const current = CurrentRow();
    m_open->setEnabled(current && m_session->OpensAssembly(*current));
    const std::vector<SharedText> way = m_session->GetWay();
    m_up->setEnabled(hasLevels && way.size() > 1);
    m_direct->setEnabled(hasLevels);
    m_allParts->setEnabled(hasLevels);
    (hasLevels && m_session->GetLevel().allParts ? m_allParts : m_direct)->setChecked(true);
    m_levels->setVisible(hasLevels);
    QStringList names;
    for (const SharedText& name : way)
        names += QString::fromStdWString(name.Str());
    m_levels->ShowWay(names, m_session->GetLevel().allParts);
}

platform::TreeTableRow* MainWindow::CurrentRow() const {
    const QModelIndex current = m_tree->currentIndex();
    return current.isValid() ? &TreeItemModel::RowOf(current) : nullptr;
}

void MainWindow::OpenAssembly() {
    GoTo([this] {
        const platform::TreeTableRow* const row = CurrentRow();
        return row && m_session->OpenAssembly(*row);
    });
}

void MainWindow::GoBack(int entry) {
    GoTo(
        [this, entry] { return entry >= 0 && m_session->GoBack(static_cast<std::size_t>(entry)); });
}

void MainWindow::ShowAllParts(bool on) {
    if (on != m_session->GetLevel().allParts)
        GoTo([this, on] { return m_session->ShowAllParts(on); });
}

void MainWindow::GoTo(const std::function<bool()>& go) {
    if (!m_tree->CommitEditor()) {
        ShowState();
        return;
    }
    KeepPlace();
    const platform::ProductLevel before = m_session->GetLevel();
    if (go())
        TakeUpPlace(before);
    else if (const SharedText reason = m_session->TakeRefusal(); !reason.IsEmpty())
        statusBar()->showMessage(QString::fromStdWString(reason.Str()), c_messageMilliseconds);
    ShowState();
}

QString MainWindow::PlaceKey(const platform::ProductLevel& level) {
    return QString::fromStdString(level.assembly.String()) +
           (level.allParts ? QStringLiteral("|") : QString());
}

void MainWindow::KeepPlace() {
    if (m_session->HasLevels())
        m_places[PlaceKey(m_session->GetLevel())] = {ListExpanded(m_session->GetView()),
                                                     m_tree->verticalScrollBar()->value()};
}

void MainWindow::TakeUpPlace(const platform::ProductLevel& before) {
    if (!m_session->HasLevels() || before == m_session->GetLevel())
        return;
    m_model->TellChanges();
    // In the level above, the user is at the assembly that he comes from.
    const platform::TreeTableRow* const from = m_session->FindRow(before.assembly);
    const auto place = m_places.constFind(PlaceKey(m_session->GetLevel()));
    if (place == m_places.constEnd()) {
        m_session->UnfoldSections(m_tree->RowsThatFit());
        m_model->TellChanges();
    } else {
        Expand(m_session->GetView(), place->expanded);
        m_model->TellChanges();
        m_tree->verticalScrollBar()->setValue(place->scroll);
    }
    m_tree->setCurrentIndex(from ? m_model->IndexOf(*from) : m_model->index(0, 0));
    m_tree->setFocus();
}

void MainWindow::GoStep(void (Session::*go)()) {
    if (!m_tree->CommitEditor())
        return;
    KeepPlace();
    const platform::ProductLevel before = m_session->GetLevel();
    const std::optional<QPoint> place = m_tree->FindSelectedPlace();
    (m_session.get()->*go)();
    m_model->TellChanges();
    TakeUpPlace(before);
    if (place)
        m_tree->SelectAt(*place);
    if (!(before == m_session->GetLevel()))
        statusBar()->showMessage(
            tr("Changed in %1").arg(QString::fromStdWString(m_session->GetWay().back().Str())),
            c_messageMilliseconds);
    ShowState();
}

} // namespace desktop
