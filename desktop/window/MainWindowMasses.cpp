// What the window does about masses: parts are measured, and those without a mass are found.
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"
#include "desktop/window/ContextMenus.h"
#include "desktop/window/MainWindow.h"
#include "desktop/window/MassIndicator.h"

#include <QMenu>
#include <QStatusBar>

#include <algorithm>

namespace desktop {

namespace {

constexpr const wchar_t* c_mass = L"mass";

} // namespace

void MainWindow::StartMasses() {
    if (step::StepDocument* const document = m_session ? m_session->GetStep() : nullptr)
        m_masses->Start(*document);
}

void MainWindow::OnMeasured(const step::Measures& measures) {
    WhenIdle([this, measures] {
        m_session->TakeMeasures(measures);
        ShowState();
    });
}

QString MainWindow::MassNote(const platform::TreeTableRow& row) const {
    const platform::MassesBelow masses = m_session->FindMassesBelow(row);
    if (masses.without.empty())
        return {};
    return masses.without.size() == 1
               ? tr("1 of %1 parts has no mass").arg(masses.parts)
               : tr("%1 of %2 parts have no mass").arg(masses.without.size()).arg(masses.parts);
}

void MainWindow::OfferMissingMasses() {
    const auto& heads = m_session->GetView().GetHeads();
    const bool isShown = std::ranges::find(heads, c_mass, &platform::ColumnHead::id) != heads.end();
    m_masses->OfferMissing(isShown && m_session->LacksMass());
}

void MainWindow::AddMassCommand(QMenu& menu, const QModelIndex& cell) {
    if (TreeItemModel::HeadOf(cell).id != c_mass ||
        m_session->FindMassesBelow(TreeItemModel::RowOf(cell)).without.empty())
        return;
    menu.addSeparator();
    menu.addAction(tr("Select parts without mass"), this, [this, at = QPersistentModelIndex(cell)] {
        if (at.isValid())
            SelectWithoutMass(TreeItemModel::RowOf(at));
    });
}

void MainWindow::SelectAllWithoutMass() {
    if (m_session && m_tree->CommitEditor() && m_session->GetView().GetRoot())
        SelectWithoutMass(*m_session->GetView().GetRoot());
}

void MainWindow::SelectWithoutMass(platform::TreeTableRow& row) {
    // The parts of an assembly are seen in it alone.
    if (m_session->OpensAssembly(row)) {
        GoTo([&] { return m_session->OpenAssembly(row); });
        SelectAllWithoutMass();
        return;
    }
    const std::vector<platform::TreeTableRow*> rows = m_session->FindRowsWithoutMass(row);
    if (rows.empty())
        statusBar()->showMessage(tr("All parts have a mass"), c_messageMilliseconds);
    else
        m_tree->SelectRowsOf(rows);
}

} // namespace desktop
