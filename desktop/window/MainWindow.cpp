#include "desktop/window/MainWindow.h"

#include "desktop/window/DialogDecisions.h"
#include "desktop/window/MassJob.h"
#include "desktop/window/PanelTree.h"
#include "desktop/window/TreeItemModel.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

constexpr QSize c_usualSize(1280, 800);
constexpr int c_smallestHeight = 420;
constexpr int c_largestHeight = 1400;

QString ToQString(const std::filesystem::path& path) {
    return QFile::decodeName(path.c_str());
}

SharedText ToText(const QString& text) {
    return SharedText(text.toStdWString());
}

std::size_t CountRows(const platform::TreeTableRow& row) {
    std::size_t count = 1;
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        count += CountRows(row.GetChildRow(i));
    return count;
}

QString CountText(std::size_t count, const char* one, const char* many) {
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
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

MainWindow::MainWindow(std::unique_ptr<platform::IUserDecisions> decisions)
    : m_decisions(decisions ? std::move(decisions) : std::make_unique<DialogDecisions>(*this)) {
    setCentralWidget(MakePanel());
    MakeMenus();
    MakeStatusBar();
    resize(c_usualSize);
}

MainWindow::~MainWindow() {
    StopMasses();
    m_tree->ShowModel(nullptr);
}

void MainWindow::MakeMenus() {
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Open..."), QKeySequence::Open, this, &MainWindow::ChooseFile);
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), this, &QWidget::close);
    QMenu* const view = menuBar()->addMenu(tr("&View"));
    view->addAction(tr("&Expand all"), QKeySequence(Qt::CTRL | Qt::Key_E), this,
                    [this] { m_session->ExpandAll(); });
    view->addAction(tr("&Collapse all"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E), this,
                    [this] { m_session->CollapseAll(); });
}

QWidget* MainWindow::MakePanel() {
    m_caption = new QLabel;
    QFont font = m_caption->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.15);
    m_caption->setFont(font);
    m_file = new QLabel;
    m_file->setForegroundRole(QPalette::PlaceholderText);
    m_tree = new PanelTree;
    connect(m_tree, &PanelTree::SelectedRowsChanged, this, &MainWindow::ShowCounts);

    auto* const head = new QHBoxLayout;
    head->setContentsMargins(10, 7, 10, 7);
    head->addWidget(m_caption);
    head->addStretch();
    head->addWidget(m_file);
    auto* const panel = new QWidget;
    auto* const layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(head);
    layout->addWidget(m_tree);
    return panel;
}

void MainWindow::MakeStatusBar() {
    m_counts = new QLabel;
    m_note = new QLabel;
    m_massLabel = new QLabel;
    m_massProgress = new QProgressBar;
    m_massProgress->setRange(0, 1000);
    m_massProgress->setFixedWidth(180);
    m_massProgress->setMaximumHeight(fontMetrics().height() + 2);
    m_massCancel = new QToolButton;
    m_massCancel->setText(tr("Cancel"));
    connect(m_massCancel, &QToolButton::clicked, this, [this] {
        m_areMassesCancelled = true;
        m_massCancel->setEnabled(false);
        if (m_massJob)
            m_massJob->Cancel();
    });
    // Long notes are cut: they must not widen the window.
    m_note->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    for (QLabel* label : {m_caption, m_file, m_counts, m_note, m_massLabel})
        label->setTextFormat(Qt::PlainText);
    statusBar()->setContentsMargins(6, 0, 6, 0);
    statusBar()->addWidget(m_counts);
    statusBar()->addWidget(m_note, 1);
    statusBar()->addPermanentWidget(m_massLabel);
    statusBar()->addPermanentWidget(m_massProgress);
    statusBar()->addPermanentWidget(m_massCancel);
    m_massProgress->hide();
    m_massCancel->hide();
}

void MainWindow::Show(std::unique_ptr<Session> session) {
    StopMasses();
    m_tree->ShowModel(nullptr);
    m_model.reset();
    m_session = std::move(session);
    m_model = std::make_unique<TreeItemModel>(m_session->GetView());
    connect(m_model.get(), &TreeItemModel::PanelChanged, this, &MainWindow::ShowCaption);
    connect(m_model.get(), &TreeItemModel::RowStatesChanged, this, &MainWindow::ShowCounts);
    m_tree->ShowModel(m_model.get());

    QStringList notes;
    for (const std::string& note : m_session->GetNotes())
        notes += QString::fromStdString(note);
    m_note->setText(notes.join(QStringLiteral("; ")));
    m_massLabel->clear();
    ShowCaption();
    ShowCounts();
}

void MainWindow::ShowCaption() {
    const platform::PanelState& panel = m_session->GetView().GetPanel();
    const QString caption = QString::fromStdWString(panel.caption.Str());
    const QString file = ToQString(m_session->GetPath().filename());
    m_caption->setText(caption);
    m_file->setText(file);
    m_tree->setHeaderHidden(!panel.areHeadsShown);
    setWindowTitle(caption.isEmpty() ? file : QStringLiteral("%1 - %2").arg(file, caption));
}

void MainWindow::ShowCounts() {
    const platform::TreeTableRow* root = m_session->GetView().GetRoot();
    QString text = CountText(root ? CountRows(*root) : 0, "row", "rows");
    if (const std::size_t selected = m_session->GetView().GetSelectedRows().size())
        text += QStringLiteral(", %1 selected").arg(selected);
    m_counts->setText(text);
}

void MainWindow::ChooseFile() {
    platform::FileRequest request;
    request.title = ToText(tr("Open"));
    request.patterns = {L"*.step", L"*.stp", L"*.STEP", L"*.STP", L"*.json"};
    if (m_session)
        request.start = m_session->GetPath().parent_path();
    if (const auto chosen = m_decisions->ChooseFile(request))
        OpenFile(*chosen, {});
}

void MainWindow::OpenFile(const std::filesystem::path& path, const import::StepOptions& options) {
    // Two documents must not be worked on at the same time.
    const bool wasWorking = m_massJob != nullptr;
    StopMasses();
    std::unique_ptr<Session> session;
    FileError error;
    {
        const WaitCursor wait;
        auto opened = OpenDocument(path, options);
        if (auto* document = std::get_if<Document>(&opened)) {
            // One session at a time: the frame of the old one goes before that of the new comes.
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
        StartMasses();
        return;
    }
    m_decisions->Tell(
        ToText(tr("The file can't be opened")),
        ToText(ToQString(path) + QStringLiteral(": ") + QString::fromStdString(error.reason)));
    if (wasWorking)
        StartMasses();
}

void MainWindow::StartMasses() {
    import::StepDocument* const step = m_session ? m_session->GetStep() : nullptr;
    if (!step)
        return;
    m_areMassesCancelled = false;
    m_massLabel->setText(tr("Working out masses"));
    m_massProgress->setValue(0);
    m_massProgress->show();
    m_massCancel->setEnabled(true);
    m_massCancel->show();
    m_massJob = std::make_unique<MassJob>(*step);
    connect(m_massJob.get(), &MassJob::Progressed, m_massProgress, &QProgressBar::setValue);
    connect(m_massJob.get(), &MassJob::Ended, this, &MainWindow::OnMassesEnded);
}

void MainWindow::OnMassesEnded(const import::StepDocument::Masses& masses) {
    // The job is telling this itself and goes when it is through.
    m_massJob.release()->deleteLater();
    StopMasses();
    if (m_areMassesCancelled) {
        m_massLabel->setText(tr("Masses cancelled"));
        return;
    }
    if (!masses.empty())
        m_session->TakeMasses(masses);
    m_massLabel->setText(masses.empty()
                             ? tr("No masses")
                             : tr("Masses of %1").arg(CountText(masses.size(), "part", "parts")));
}

void MainWindow::StopMasses() {
    m_massJob.reset();
    m_massProgress->hide();
    m_massCancel->hide();
}

void MainWindow::FitToRows() {
    const int around = height() - m_tree->viewport()->height();
    const int wanted = m_tree->HeightForRows() + around;
    resize(width(), std::clamp(wanted, c_smallestHeight, c_largestHeight));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (m_massJob)
        m_massJob->Cancel();
    QMainWindow::closeEvent(event);
}

} // namespace desktop
