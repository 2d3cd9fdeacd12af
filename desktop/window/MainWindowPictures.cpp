// What the window does about pictures of parts, which the tips of their rows show.
#include "desktop/documents/DocumentPane.h"
#include "desktop/preview/PartPictures.h"
#include "desktop/tree/PanelTree.h"
#include "desktop/window/MainWindow.h"
#include "desktop/window/MassIndicator.h"

#include <QApplication>
#include <QFile>
#include <QImage>

#include <algorithm>

namespace desktop {

void MainWindow::MakePictures() {
    m_pictures = new PartPictures(this);
    m_pictures->SetObstacle(&MainWindow::IsAnyBusy);
    connect(m_pictures, &PartPictures::Drawn, m_tree, &PanelTree::RenewTip);
}

bool MainWindow::IsAnyBusy() {
    return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* widget) {
        const auto* const window = qobject_cast<const MainWindow*>(widget);
        return window && (window->m_masses->IsWorking() || window->m_documents->IsBusy());
    });
}

QImage MainWindow::PictureOf(const platform::TreeTableRow& row) {
    const StepPart part = m_session->FindStepPart(row);
    if (part.IsEmpty())
        return {};
    const QString file = QFile::decodeName(m_session->GetSourcePath().c_str());
    // The user may go on to one of these. Assemblies take long, and are drawn when they are asked
    // for.
    QList<StepPart> wanted{part};
    for (const platform::TreeTableRow* const other : m_tree->FindRowsInSight()) {
        StepPart known =
            m_session->OpensAssembly(*other) ? StepPart() : m_session->FindStepPart(*other);
        if (!known.IsEmpty() && !wanted.contains(known))
            wanted.push_back(std::move(known));
    }
    m_pictures->Want(file, wanted);
    return m_pictures->Find(file, part);
}

} // namespace desktop
