// What the window does about the box of documents below the tree: it stands there, its commands
// come here, and what they have changed is shown.
#include "desktop/documents/DocumentPane.h"
#include "desktop/tree/PanelTree.h"
#include "desktop/window/MainWindow.h"

#include <QFile>
#include <QMenu>
#include <QSplitter>
#include <QStatusBar>

namespace desktop {

namespace {

constexpr unsigned c_add = 7783;
/// Says itself what it has to say.
constexpr unsigned c_none = 0;

} // namespace

QWidget* MainWindow::MakeDocuments() {
    m_documents = new DocumentPane;
    m_documents->SetQuestions(
        {[this](const std::wstring& file) {
             return QString::fromStdWString(m_session->FindDocumentPath(file));
         },
         [this](const std::wstring& file) { return m_session->CanEditDocument(file); },
         [this](const std::wstring& file) { return m_session->FindDocumentPart(file); }});
    connect(m_documents, &DocumentPane::Wanted, this,
            [this](unsigned command, const std::function<void()>& run) {
                if (m_tree->CommitEditor())
                    RunCommand(command, run);
            });
    connect(m_documents, &DocumentPane::EditWanted, this, &MainWindow::EditDocument);
    connect(m_documents, &DocumentPane::FilesDropped, this, &MainWindow::AddDocuments);
    connect(m_documents, &DocumentPane::Left, this, [this] { m_tree->setFocus(); });
    connect(m_documents, &DocumentPane::Told, this, [this](const QString& reason) {
        statusBar()->showMessage(reason, c_messageMilliseconds);
    });
    auto* const parts = new QSplitter(Qt::Vertical);
    parts->setChildrenCollapsible(false);
    parts->addWidget(m_tree);
    parts->addWidget(m_documents);
    parts->setStretchFactor(0, 1);
    parts->setStretchFactor(1, 0);
    return parts;
}

void MainWindow::AddDocumentActions(QMenu& view) {
    view.addSeparator();
    view.addAction(m_documents->GetFoldAction());
    view.addAction(m_documents->GetGoAction());
}

void MainWindow::ShowDocuments() {
    m_documents->ShowBox(m_session->GetDocumentBox(), &m_session->GetView());
}

void MainWindow::EditDocument(const std::wstring& file) {
    if (m_tree->CommitEditor())
        RunCommand(c_none, [&] { m_session->EditDocument(file); });
}

void MainWindow::AddDocuments(const QStringList& files) {
    if (!m_tree->CommitEditor())
        return;
    std::vector<std::filesystem::path> paths;
    for (const QString& file : files)
        paths.emplace_back(QFile::encodeName(file).toStdString());
    RunCommand(c_add, [&] { m_session->AddDocuments(paths); });
}

} // namespace desktop
