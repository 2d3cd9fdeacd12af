#include "desktop/window/MainWindow.h"

#include "desktop/books/UserListDialog.h"
#include "desktop/dialogs/DialogDecisions.h"
#include "desktop/documents/DocumentPane.h"
#include "desktop/editors/LocaleNumbers.h"
#include "desktop/preview/PartPictures.h"
#include "desktop/tree/HighlightedRows.h"
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"
#include "desktop/window/AttributeActions.h"
#include "desktop/window/ContextMenus.h"
#include "desktop/window/EmbodimentBar.h"
#include "desktop/window/HelpMenu.h"
#include "desktop/window/LevelBar.h"
#include "desktop/window/MassIndicator.h"
#include "desktop/window/ProductActions.h"
#include "desktop/window/ToolStrips.h"
#include "desktop/window/WindowMemory.h"
#include "platform/services/UserPopupMenus.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

constexpr QSize c_usualSize(1280, 800);
/// How long what waits for the user waits while a dialog is open.
constexpr int c_retryMilliseconds = 500;
constexpr int c_smallestHeight = 420;
constexpr int c_largestHeight = 1400;

QString ToQString(const std::filesystem::path& path) {
    return QFile::decodeName(path.c_str());
}

/// The same file wherever the program was started.
QString MemoryKey(const Session& session) {
    std::error_code error;
    return ToQString(std::filesystem::absolute(session.GetPath(), error));
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

bool IsWithin(const ValueLimits& limits, double number) {
    return number >= limits.min.value_or(number) && number <= limits.max.value_or(number);
}

QString LimitsText(const ValueLimits& limits) {
    if (limits.min && limits.max)
        return MainWindow::tr(", from %1 to %2 is allowed")
            .arg(FormatNumber(*limits.min), FormatNumber(*limits.max));
    if (limits.min)
        return MainWindow::tr(", %1 or more is allowed").arg(FormatNumber(*limits.min));
    return limits.max ? MainWindow::tr(", %1 or less is allowed").arg(FormatNumber(*limits.max))
                      : QString();
}

/// The action's text with the name of the step it is about, in which nothing is a shortcut.
void ShowStep(QAction& action, const QString& text, bool isPossible, const SharedText& step) {
    const QString name = QString::fromStdWString(step.Str()).simplified();
    action.setEnabled(isPossible);
    action.setText(name.isEmpty()
                       ? text
                       : text + QLatin1Char(' ') +
                             QString(name).replace(QStringLiteral("&"), QStringLiteral("&&")));
}

} // namespace

MainWindow::MainWindow(std::unique_ptr<platform::IUserDecisions> decisions)
    : m_decisions(decisions ? std::move(decisions) : std::make_unique<DialogDecisions>(*this)),
      m_slot(*m_decisions),
      m_sourceDesk([this] { StopMeasuring(); },
                   [this](const platform::SourceUpdate& update) { OnUpdated(update); }) {
    setCentralWidget(MakePanel());
    MakeCommands();
    MakeFileMenu();
    QMenu* const edit = MakeEditMenu();
    m_attributes = new AttributeActions(*edit, *MakeViewMenu(), *m_tree);
    m_attributes->setParent(this);
    MakeWindowMenu();
    MakeEmbodimentBar();
    new HelpMenu(*this, [this] {
        return m_session ? QString::fromStdString(m_session->GetView().GetPanel().helpTopic)
                         : QString();
    });
    MakeStatusBar();
    MakePictures();
    connect(&m_watch, &FileWatch::Touched, this, &MainWindow::OnFileTouched);
    connect(&m_sourceWatch, &FileWatch::Touched, this,
            [this] { WhenIdle([this] { TakeSourceNews(); }); });
    resize(c_usualSize);
}

MainWindow::~MainWindow() {
    if (m_session)
        m_session->SetListener(nullptr);
    m_masses->Stop();
    // It hears that the user leaves it while the window is taken down.
    m_embodimentBar->Show(nullptr);
    m_documents->ShowBox(nullptr, nullptr);
    m_tree->ShowModel(nullptr);
}

void MainWindow::MakeFileMenu() {
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Open..."), QKeySequence::Open, this, &MainWindow::ChooseFile);
    m_save = file->addAction(tr("&Save"), QKeySequence::Save, this, &MainWindow::Save);
    file->addAction(tr("Save &As..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), this,
                    &MainWindow::SaveAs);
    file->addSeparator();
    m_encoding = file->addAction(tr("&Text Encoding..."), this, &MainWindow::ChooseEncoding);
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), qApp,
                    &QApplication::closeAllWindows);
}

QMenu* MainWindow::MakeEditMenu() {
    QMenu* const edit = menuBar()->addMenu(tr("&Edit"));
    m_undo =
        edit->addAction(tr("&Undo"), QKeySequence::Undo, this, [this] { GoStep(&Session::Undo); });
    m_redo =
        edit->addAction(tr("&Redo"), QKeySequence::Redo, this, [this] { GoStep(&Session::Redo); });
    // Elsewhere they are named without the step that they are about.
    m_undo->setIconText(tr("Undo"));
    m_redo->setIconText(tr("Redo"));
    edit->addSeparator();
    edit->addAction(tr("Value of &selected rows"), QKeySequence(Qt::SHIFT | Qt::Key_F2), m_tree,
                    &PanelTree::EditHead);
    edit->addAction(tr("&Clear value"), QKeySequence(Qt::Key_Backspace), m_tree,
                    &PanelTree::ClearValue);
    edit->addAction(tr("Value &by source"), QKeySequence(Qt::CTRL | Qt::Key_Return), m_tree,
                    &PanelTree::ClickSourceIcon);
    edit->addSeparator();
    AddCommands(*edit);
    return edit;
}

QMenu* MainWindow::MakeViewMenu() {
    QMenu* const view = menuBar()->addMenu(tr("&View"));
    AddLevelActions(*view);
    view->addAction(tr("&Expand all"), QKeySequence(Qt::CTRL | Qt::Key_E), this,
                    [this] { m_session->ExpandAll(); });
    view->addAction(tr("&Collapse all"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E), this,
                    [this] { m_session->CollapseAll(); });
    view->addSeparator();
    view->addAction(tr("Choose Co&lumns..."), this, &MainWindow::ChooseColumns);
    m_embodiments = view->addAction(tr("Counts of All E&mbodiments"));
    m_embodiments->setCheckable(true);
    m_embodiments->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
    AddDocumentActions(*view);
    return view;
}

QWidget* MainWindow::MakePanel() {
    m_caption = new QLabel;
    QFont font = m_caption->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.15);
    m_caption->setFont(font);
    m_file = new QLabel;
    m_file->setForegroundRole(QPalette::WindowText);
    m_tree = new PanelTree;
    connect(m_tree, &PanelTree::SelectedRowsChanged, this, [this] {
        ShowCounts();
        ShowLevel();
        m_attributes->Show(m_session->GetView());
        m_productActions->Show(*m_session);
    });
    connect(&m_tree->GetHighlighted(), &HighlightedRows::Ended, this,
            [this] { m_session->EndHighlighting(); });
    connect(m_tree, &PanelTree::AssemblyOpened, this, &MainWindow::OpenAssembly);
    m_tree->SetListEditor([this](const IMenuItems& menu) {
        const std::optional<TeeTypPopupIns> list = platform::FindUserList(menu);
        return list ? ChooseFromUserList(this, *list) : std::nullopt;
    });
    m_levels = new LevelBar;
    connect(m_levels, &LevelBar::Chosen, this, &MainWindow::GoBack);
    connect(m_tree, &PanelTree::Edited, this, [this] {
        // What was said of the time before is no news any more.
        m_note->clear();
        ShowState();
        // A link that was clicked has no editor to tell why nothing came of it.
        if (const SharedText refusal = m_session->TakeRefusal(); !refusal.IsEmpty())
            statusBar()->showMessage(
                tr("Nothing was changed: %1").arg(QString::fromStdWString(refusal.Str())),
                c_messageMilliseconds);
    });
    connect(m_tree, &PanelTree::EditorLeft, this, &MainWindow::DoWhatWaits, Qt::QueuedConnection);
    connect(m_tree, &PanelTree::TypedInVain, this, [this](const QString& column) {
        statusBar()->showMessage(tr("%1 can't be edited in this row").arg(column),
                                 c_messageMilliseconds);
    });
    connect(m_tree, &PanelTree::DraftLost, this, [this](const QString& column) {
        statusBar()->showMessage(tr("%1: the row that was edited is gone").arg(column),
                                 c_messageMilliseconds);
    });

    auto* const head = new QHBoxLayout;
    head->setContentsMargins(10, 7, 10, 7);
    head->addWidget(m_caption);
    head->addWidget(m_levels);
    head->addStretch();
    head->addWidget(m_file);
    auto* const panel = new QWidget;
    auto* const layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(head);
    layout->addWidget(MakeDocuments());
    return panel;
}

void MainWindow::MakeEmbodimentBar() {
    m_embodiments->setIconText(tr("Embodiments"));
    m_embodimentBar = new EmbodimentBar(*m_embodiments, *m_tree);
    m_embodimentTool = m_strips->GetAdditional().addWidget(m_embodimentBar);
    connect(m_embodimentBar, &EmbodimentBar::Told, this,
            [this](const QString& text) { statusBar()->showMessage(text, c_messageMilliseconds); });
}

void MainWindow::MakeStatusBar() {
    m_counts = new QLabel;
    m_note = new QLabel;
    m_masses = new MassIndicator;
    connect(m_masses, &MassIndicator::Measured, this, &MainWindow::OnMeasured);
    connect(m_masses, &MassIndicator::MissingWanted, this, &MainWindow::SelectAllWithoutMass);
    // Long notes are cut: they must not widen the window.
    m_note->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    for (QLabel* label : {m_caption, m_file, m_counts, m_note})
        label->setTextFormat(Qt::PlainText);
    statusBar()->setContentsMargins(6, 0, 6, 0);
    statusBar()->addWidget(m_counts);
    statusBar()->addWidget(m_note, 1);
    statusBar()->addPermanentWidget(m_masses);
}

void MainWindow::Show(std::unique_ptr<Session> session) {
    m_masses->Stop();
    m_pictures->Stop();
    m_waiting.clear();
    m_menus->Close();
    KeepView();
    m_documents->ShowBox(nullptr, nullptr);
    m_tree->ShowModel(nullptr);
    m_model.reset();
    m_session = std::move(session);
    m_places.clear();
    m_session->SetDecisions(m_decisions.get());
    m_session->SetListener(this);
    m_session->SetPopupMenus(m_menus);
    m_session->SetSourceDesk(&m_sourceDesk);
    m_watchedSource.clear();
    m_model = std::make_unique<TreeItemModel>(m_session->GetView());
    m_rowCount.reset();
    connect(m_model.get(), &TreeItemModel::modelReset, this, [this] { m_rowCount.reset(); });
    connect(m_model.get(), &TreeItemModel::PanelChanged, this, &MainWindow::ShowCaption);
    connect(m_model.get(), &TreeItemModel::RowStatesChanged, this, &MainWindow::ShowCounts);
    connect(m_model.get(), &TreeItemModel::Changed, this, &MainWindow::ShowState);
    connect(m_model.get(), &TreeItemModel::InputAnswered, this, &MainWindow::OnInputAnswered);
    connect(m_model.get(), &TreeItemModel::HeadAnswered, this, &MainWindow::OnHeadAnswered);
    m_model->SetQuestions(
        {[this](const platform::TreeTableRow& row) { return m_session->OpensAssembly(row); },
         [this](const platform::TreeTableRow& row, const std::wstring& columnId) {
             return m_session->FindCountNote(row, columnId);
         },
         [this](const platform::TreeTableRow& row) { return MassNote(row); },
         [this](const platform::TreeTableRow& row) { return PictureOf(row); }});
    m_tree->ShowModel(m_model.get());
    ShowDocuments();

    QStringList notes;
    for (const std::string& note : m_session->GetNotes())
        notes += QString::fromStdString(note);
    m_note->setText(notes.join(QStringLiteral("; ")));
    m_watch.Watch(m_session->IsProductFile() ? m_session->GetPath() : std::filesystem::path());
    ShowCaption();
    ShowCounts();
    ShowState();
}

// In a queue: the panel is at work when it is told.
void MainWindow::OnHighlightChanged() {
    QMetaObject::invokeMethod(this, &MainWindow::ShowHighlight, Qt::QueuedConnection);
}

void MainWindow::ShowHighlight() {
    if (!m_session)
        return;
    const std::optional<SharedText> name = m_session->GetHighlightedName();
    if (!name) {
        m_tree->GetHighlighted().Hide();
        // What has ended it may have been told of already.
        if (statusBar()->currentMessage() == m_highlightText)
            statusBar()->clearMessage();
        return;
    }
    const auto find = [this] { return m_session->FindHighlightedRows(m_session->GetView()); };
    // Another view shows it.
    if (find().empty() && !m_session->IsAlone())
        return;
    m_tree->GetHighlighted().Show(find);
    if (!m_tree->GetHighlighted().AreShown())
        return;
    m_tree->setFocus();
    const QString shown = QString::fromStdWString(name->Str()).simplified();
    m_highlightText =
        tr("Highlighted: %1. Escape ends it.").arg(shown.isEmpty() ? tr("no name") : shown);
    statusBar()->showMessage(m_highlightText);
}

void MainWindow::ShowCaption() {
    const platform::PanelState& panel = m_session->GetView().GetPanel();
    const QString caption = QString::fromStdWString(panel.caption.Str());
    const QString file = ToQString(m_session->GetPath().filename());
    m_caption->setText(caption);
    m_file->setText(file);
    m_tree->setHeaderHidden(!panel.areHeadsShown);
    // The caption of the panel stands above it, once.
    const std::size_t number = m_session->GetNumber();
    setWindowTitle(number == 0 ? file + QStringLiteral("[*]")
                               : tr("%1[*] (view %2)").arg(file).arg(number));
}

void MainWindow::ShowCounts() {
    const platform::TreeTableRow* root = m_session->GetView().GetRoot();
    // The user waits for it at each key that moves along the rows.
    if (!m_rowCount)
        m_rowCount = root ? CountRows(*root) : 0;
    QString text = CountText(*m_rowCount, "row", "rows");
    if (const std::size_t selected = m_session->GetView().GetSelectedRows().size())
        text += QStringLiteral(", %1 selected").arg(selected);
    m_counts->setText(text);
}

void MainWindow::ShowState() {
    setWindowModified(m_session->IsModified());
    // A STEP file is saved as a product file at any time.
    m_save->setEnabled(m_session->IsModified() || !m_session->IsProductFile());
    const step::StepDocument* const step = m_session->GetStep();
    m_encoding->setEnabled(step && !m_session->IsProductFile() && !step->GetForeignTexts().empty());
    m_embodimentBar->Show(&m_session->GetView());
    m_embodimentTool->setVisible(m_session->GetView().GetEmbodiments().isEnabled);
    m_strips->ShowState(m_session->GetView());
    m_attributes->Show(m_session->GetView());
    m_productActions->Show(*m_session);
    ShowStep(*m_undo, tr("&Undo"), m_session->CanUndo(), m_session->GetUndoName());
    ShowStep(*m_redo, tr("&Redo"), m_session->CanRedo(), m_session->GetRedoName());
    ShowLevel();
    OfferMissingMasses();
    FollowSource();
}

void MainWindow::WhenIdle(std::function<void()> work) {
    m_waiting.push_back(std::move(work));
    DoWhatWaits();
}

void MainWindow::DoWhatWaits() {
    if (m_waiting.empty() || m_tree->IsEditing())
        return;
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget()) {
        // A command waits for an answer about the product as it is, or is just being chosen.
        QTimer::singleShot(c_retryMilliseconds, this, &MainWindow::DoWhatWaits);
        return;
    }
    for (const auto& work : std::exchange(m_waiting, {}))
        work();
}

void MainWindow::OnInputAnswered(const platform::ColumnHead& column, const QVariant& input,
                                 bool isTaken) {
    const QString reason = m_refusal = QString::fromStdWString(m_session->TakeRefusal().Str());
    if (isTaken) {
        statusBar()->showMessage(QString::fromStdWString(m_session->TakeNote().Str()),
                                 c_messageMilliseconds);
        m_note->clear();
        return;
    }
    QString text = tr("%1: not taken").arg(QString::fromStdWString(column.caption));
    const std::optional<ValueLimits> limits = m_session->FindLimits(column.id);
    bool isNumber = false;
    const double number = input.toDouble(&isNumber);
    // A number within the limits was refused for another reason.
    if (!reason.isEmpty())
        text += QStringLiteral(", ") + reason;
    else if (!input.isValid())
        text += tr(", a value is needed");
    else if (limits && !(isNumber && IsWithin(*limits, number)))
        text += LimitsText(*limits);
    statusBar()->showMessage(text, c_messageMilliseconds);
    m_tree->NoteRefusal(text);
}

void MainWindow::OnHeadAnswered(const platform::ColumnHead& column, int takers, int rows) {
    if (takers == 0 || takers == rows)
        return;
    const QString reason =
        m_refusal.isEmpty() ? tr("the others can't be edited there") : std::exchange(m_refusal, {});
    statusBar()->showMessage(tr("%1: taken by %2 of %3 rows, %4")
                                 .arg(QString::fromStdWString(column.caption))
                                 .arg(takers)
                                 .arg(rows)
                                 .arg(reason),
                             c_messageMilliseconds);
}

void MainWindow::RememberIn(std::unique_ptr<WindowMemory> memory) {
    m_memory = std::move(memory);
    m_documents->Restore(m_memory->GetDocuments());
    if (const auto state = m_memory->Find(MemoryKey(*m_session)))
        restoreGeometry(state->place);
}

void MainWindow::TakeUpView() {
    const auto state = m_memory ? m_memory->Find(MemoryKey(*m_session)) : std::nullopt;
    if (!state) {
        m_session->UnfoldSections(m_tree->RowsThatFit());
        return;
    }
    Expand(m_session->GetView(), state->expanded);
    for (auto width = state->widths.begin(); width != state->widths.end(); ++width)
        m_tree->SetUserWidth(width.key().toStdWString(), *width);
}

void MainWindow::KeepView() {
    if (!m_memory || !m_session)
        return;
    KeepPlace();
    m_memory->KeepDocuments(m_documents->GetState());
    const auto home = m_places.constFind(PlaceKey(m_session->GetHome()));
    m_memory->Keep(
        MemoryKey(*m_session),
        {saveGeometry(), m_tree->GetUserWidths(),
         home == m_places.constEnd() ? ListExpanded(m_session->GetView()) : home->expanded});
}

void MainWindow::FitToRows() {
    const int around = height() - m_tree->viewport()->height();
    const int wanted = m_tree->HeightForRows() + around;
    resize(width(), std::clamp(wanted, c_smallestHeight, c_largestHeight));
}

} // namespace desktop
