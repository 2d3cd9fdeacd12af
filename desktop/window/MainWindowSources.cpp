// What the window does about the file that a product was imported from: it watches it, tells of
// what becomes of it, and measures again what has followed it.
#include "desktop/window/MainWindow.h"

#include "desktop/window/MassIndicator.h"

#include <QFile>
#include <QLabel>

namespace desktop {

namespace {

/// "2 parts new, 1 gone"; empty where nothing has changed.
QString ListChanges(const platform::SourceUpdate& update) {
    QStringList changes;
    const auto add = [&](std::size_t count, const QString& what) {
        if (count == 0)
            return;
        const QString parts = count == 1 ? MainWindow::tr("part ") : MainWindow::tr("parts ");
        changes +=
            QStringLiteral("%1 %2%3").arg(count).arg(changes.isEmpty() ? parts : QString(), what);
    };
    add(update.newParts, MainWindow::tr("new"));
    add(update.gone.size(), MainWindow::tr("gone"));
    add(update.changedParts, MainWindow::tr("changed"));
    return changes.join(QStringLiteral(", "));
}

} // namespace

void MainWindow::FollowSource() {
    const std::filesystem::path path = m_session->GetSourcePath();
    if (path == m_watchedSource)
        return;
    m_watchedSource = path;
    m_sourceWatch.Watch(path);
    const QString before = m_note->text();
    TakeSourceNews();
    if (!before.isEmpty() && m_note->text() != before)
        m_note->setText(before + QStringLiteral("; ") + m_note->text());
}

void MainWindow::TakeSourceNews() {
    const QString file = QFile::decodeName(m_session->GetSourcePath().filename().c_str());
    switch (m_session->NoticeSourceOnDisk()) {
    case SourceNews::None:
        return;
    case SourceNews::Changed:
        m_note->setText(tr("%1 has changed; Update all brings its parts up to date").arg(file));
        break;
    case SourceNews::Agrees:
        m_note->setText(tr("%1 is as it was read").arg(file));
        break;
    case SourceNews::Gone:
        m_note->setText(tr("%1, from which the product was made, can't be found").arg(file));
        break;
    }
    ShowState();
}

void MainWindow::StopMeasuring() {
    m_masses->Stop();
}

void MainWindow::OnUpdated(const platform::SourceUpdate& update) {
    const QString file = QFile::decodeName(m_session->GetSourcePath().filename().c_str());
    const QString changes = ListChanges(update);
    const QString note =
        changes.isEmpty()
            ? tr("%1 was read again; all parts are as they were").arg(file)
            : tr("%1 was read again: %2; Undo brings back what was here").arg(file, changes);
    // The panel is still at work on the command.
    QMetaObject::invokeMethod(
        this,
        [this, note] {
            if (!m_session)
                return;
            m_note->setText(note);
            StartMasses();
            ShowState();
        },
        Qt::QueuedConnection);
}

} // namespace desktop
