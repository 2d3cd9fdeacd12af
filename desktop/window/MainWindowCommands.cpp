// What the window does about the panel's commands: from strips, menus and keys they come here, and
// what they have changed is shown before the next one.
#include "desktop/icons/CommandLook.h"
#include "desktop/icons/MenuLetters.h"
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"
#include "desktop/window/ContextMenus.h"
#include "desktop/window/MainWindow.h"
#include "desktop/window/ProductActions.h"
#include "desktop/window/ToolStrips.h"

#include <QLabel>
#include <QMenu>
#include <QStatusBar>

#include <algorithm>

namespace desktop {

namespace {

/// Not one of the panel's, and without a name for messages.
constexpr unsigned c_noCommand = 0;
constexpr unsigned c_addObject = 7745;
constexpr unsigned c_delete = 7746;
constexpr unsigned c_updateAll = 7747;
constexpr unsigned c_highlight = 7752;
constexpr unsigned c_editRoughSign = 7761;
constexpr unsigned c_calculatePositions = 7766;
constexpr unsigned c_manageProperties = 7795;

QString WhyNot(const platform::TreeTableView& view, unsigned command) {
    if (view.GetPanel().isReadOnly)
        return MainWindow::tr("the product is read-only");
    const bool needsRows = command == c_delete || command == c_highlight;
    return needsRows && view.GetSelectedRows().empty() ? MainWindow::tr("no row is chosen")
                                                       : MainWindow::tr("not possible here");
}

} // namespace

void MainWindow::MakeCommands() {
    m_strips = new ToolStrips(*this, *m_tree);
    m_menus = new ContextMenus(*m_tree);
    const auto tell = [this](const QString& text) {
        statusBar()->showMessage(text, c_messageMilliseconds);
    };
    connect(m_strips, &ToolStrips::Chosen, this, &MainWindow::RunStripCommand);
    connect(m_strips, &ToolStrips::PressedInVain, this, [this, tell](unsigned command) {
        tell(TextOfCommand(command) + QStringLiteral(": ") + WhyNot(m_session->GetView(), command));
    });
    connect(m_menus, &ContextMenus::NothingOffered, this, tell);
    m_menus->SetAddition(
        [this](QMenu& menu, const QModelIndex& cell) { AddMassCommand(menu, cell); });
    connect(m_tree, &PanelTree::DialogWanted, m_menus,
            [this] { m_menus->Choose(c_editRoughSign); });
    connect(m_menus, &ContextMenus::Chosen, this,
            [this](unsigned command) { RunCommand(command, [this] { m_menus->SendChosen(); }); });
}

void MainWindow::AddCommands(QMenu& edit) {
    for (const unsigned command :
         {c_addObject, c_delete, 0U, c_highlight, c_calculatePositions, c_updateAll}) {
        if (command == 0)
            edit.addSeparator();
        else
            edit.addAction(m_strips->GetAction(command));
    }
    edit.addSeparator();
    m_productActions = new ProductActions(edit, [this](const std::function<void()>& run) {
        if (m_tree->CommitEditor())
            RunCommand(c_noCommand, run);
    });
    m_productActions->setParent(this);
    edit.addAction(tr("Select parts without mass"), this, &MainWindow::SelectAllWithoutMass);
    edit.addSeparator();
    m_menus->AddActions(edit);
    MarkLetters(edit.actions());
}

void MainWindow::RunStripCommand(unsigned command) {
    if (!m_tree->CommitEditor())
        return;
    RunCommand(command, [this, command] {
        platform::TreeTableView& view = m_session->GetView();
        // What the editor has left may have changed what can be done.
        if (view.IsCommandOffered(command))
            view.RunCommandByUser(static_cast<int>(command));
    });
}

void MainWindow::ChooseColumns() {
    if (m_tree->CommitEditor())
        RunCommand(c_manageProperties, [this] { m_session->GetView().ChooseColumnsByUser(); });
}

void MainWindow::RunCommand(unsigned command, const std::function<void()>& run) {
    KeepPlace();
    const platform::ProductLevel before = m_session->GetLevel();
    // What is highlighted is seen alone; of anything else the user goes on from where he was.
    const std::optional<QPoint> place =
        command == c_highlight ? std::nullopt : m_tree->FindSelectedPlace();
    static_cast<void>(m_session->TakeRefusal());
    run();
    m_session->FollowCommand();
    m_model->TellChanges();
    const platform::TreeTableRow* const chosen =
        before == m_session->GetLevel() ? nullptr : m_session->GetView().GetCurrent();
    TakeUpPlace(before);
    if (chosen)
        m_tree->setCurrentIndex(m_model->IndexOf(*chosen));
    if (place)
        m_tree->SelectAt(*place);
    const QString refusal = QString::fromStdWString(m_session->TakeRefusal().Str());
    const QString name = TextOfCommand(command);
    if (!refusal.isEmpty())
        statusBar()->showMessage(name.isEmpty() ? refusal : name + QStringLiteral(": ") + refusal,
                                 c_messageMilliseconds);
    else if (const SharedText note = m_session->TakeNote(); !note.IsEmpty())
        statusBar()->showMessage(QString::fromStdWString(note.Str()), c_messageMilliseconds);
    m_note->clear();
    ShowState();
}

} // namespace desktop
