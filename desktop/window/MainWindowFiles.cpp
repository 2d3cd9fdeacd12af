// What the window does about files: opening, saving, leaving, and files that others change.
#include "desktop/window/MainWindow.h"

#include "desktop/dialogs/EncodingDialog.h"
#include "desktop/documents/DocumentPane.h"
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"
#include "desktop/window/ContextMenus.h"
#include "desktop/window/MassIndicator.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QLabel>
#include <QScopedValueRollback>
#include <QTimer>

#include <utility>

namespace desktop {

namespace {

QString ToQString(const std::filesystem::path& path) {
    return QFile::decodeName(path.c_str());
}

SharedText ToText(const QString& text) {
    return SharedText(text.toStdWString());
}

/// Reading keeps the window busy; the pointer says so.
class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace

void MainWindow::ChooseFile() {
    platform::FileRequest request;
    request.title = ToText(tr("Open"));
    request.patterns = {L"*.step", L"*.stp", L"*.STEP", L"*.STP", L"*.json"};
    if (m_session)
        request.start = m_session->GetPath().parent_path();
    if (const auto chosen = m_decisions->ChooseFile(request))
        OpenFile(*chosen, {});
}

void MainWindow::ChooseEncoding() {
    if (!m_tree->CommitEditor())
        return;
    EncodingDialog dialog(*m_session->GetStep(), this);
    if (dialog.exec() != QDialog::Accepted ||
        dialog.GetEncoding() == m_session->GetStep()->GetEncoding())
        return;
    OpenFile(std::filesystem::path(m_session->GetPath()), {"", false, dialog.GetEncoding()});
}

void MainWindow::OpenFile(const std::filesystem::path& path, const step::StepOptions& options) {
    if (!MayLeave())
        return;
    const bool wasMeasuring = m_masses->IsWorking();
    m_masses->Stop();
    std::unique_ptr<Session> session;
    FileError error;
    {
        const WaitCursor wait;
        auto opened = OpenDocument(path, options);
        if (auto* document = std::get_if<Document>(&opened)) {
            KeepView();
            if (wasMeasuring)
                HandOverMasses();
            m_menus->Close();
            m_documents->ShowBox(nullptr, nullptr);
            m_tree->ShowModel(nullptr);
            m_model.reset();
            m_session.reset();
            session = std::make_unique<Session>(std::move(*document));
        } else {
            error = std::get<FileError>(opened);
        }
    }
    if (session) {
        Show(std::move(session));
        TakeUpView();
        StartMasses();
        return;
    }
    TellUnopened(path, error);
    if (wasMeasuring)
        StartMasses();
}

void MainWindow::TellUnopened(const std::filesystem::path& path, const FileError& error) {
    TellError(tr("The file can't be opened"), path, error);
}

bool MainWindow::Save() {
    if (!m_tree->CommitEditor())
        return false;
    return (m_session->IsProductFile() && SaveTo(m_session->GetPath())) || SaveAs();
}

bool MainWindow::SaveAs() {
    if (!m_tree->CommitEditor())
        return false;
    platform::FileRequest request;
    request.title = ToText(tr("Save As"));
    request.patterns = {L"*.json"};
    request.start = m_session->GetProductPath();
    request.forWriting = true;
    // Until it is written somewhere, or he gives up.
    while (std::optional<std::filesystem::path> chosen = m_decisions->ChooseFile(request)) {
        std::error_code error;
        if (!chosen->has_extension() && !std::filesystem::exists(*chosen, error))
            chosen->replace_extension(".json");
        if (SaveTo(*chosen))
            return true;
        request.start = *chosen;
    }
    return false;
}

bool MainWindow::SaveTo(const std::filesystem::path& path) {
    if (const auto error = m_session->SaveAs(path)) {
        TellError(tr("The file can't be saved"), path, *error);
        return false;
    }
    m_watch.Watch(path);
    m_note->setText(tr("Saved as %1").arg(ToQString(path.filename())));
    ShowCaption();
    ShowState();
    return true;
}

bool MainWindow::MayLeave() {
    if (!m_session)
        return true;
    if (!m_tree->CommitEditor())
        return false;
    if (!m_session->IsModified() || !m_session->IsAlone())
        return true;
    enum Answer : std::size_t { AnswerSave, AnswerDiscard };
    platform::Question question;
    question.title = ToText(tr("Unsaved changes"));
    question.text = ToText(
        tr("Save the changes to %1?").arg(ToQString(m_session->GetProductPath().filename())));
    question.buttons = {ToText(tr("Save")), ToText(tr("Discard")), ToText(tr("Cancel"))};
    const std::optional<std::size_t> answer = m_decisions->Ask(question);
    return answer == AnswerDiscard || (answer == AnswerSave && Save());
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!MayLeave()) {
        event->ignore();
        return;
    }
    const bool wasMeasuring = m_masses->IsWorking();
    m_masses->Stop();
    if (wasMeasuring)
        HandOverMasses();
    KeepView();
    QMainWindow::closeEvent(event);
}

void MainWindow::OnFileTouched() {
    WhenIdle([this] { TakeFileNews(); });
}

void MainWindow::TakeFileNews() {
    const QString file = ToQString(m_session->GetPath().filename());
    switch (m_session->NoticeChangeOnDisk()) {
    case FileNews::None:
        return;
    case FileNews::Gone:
        m_note->setText(
            tr("%1 was deleted or renamed by another program; Save writes it again").arg(file));
        break;
    case FileNews::Changed:
        if (!MayReload())
            return;
        const std::optional<FileError> error = m_session->Reload(ToText(tr("Reading Again")));
        m_note->setText(
            error ? tr("%1 was changed by another program and can't be read: %2")
                        .arg(file, QString::fromStdString(error->reason))
                  : tr("%1 was changed by another program and read again; Undo brings back what "
                       "was here")
                        .arg(file));
        break;
    }
    ShowState();
}

bool MainWindow::MayReload() {
    if (!m_session->IsModified())
        return true;
    platform::Question question;
    question.title = ToText(tr("The file has changed"));
    question.text = ToText(tr("%1 was changed by another program. Read it again and lose the "
                              "unsaved changes?")
                               .arg(ToQString(m_session->GetPath().filename())));
    question.buttons = {ToText(tr("Keep My Changes")), ToText(tr("Read Again"))};
    return m_decisions->Ask(question) == std::size_t{1};
}

void MainWindow::TellError(const QString& title, const std::filesystem::path& path,
                           const FileError& error) {
    m_decisions->Tell(ToText(title), ToText(ToQString(path) + QStringLiteral(": ") +
                                            QString::fromStdString(error.reason)));
}

} // namespace desktop
