#include "desktop/documents/DocumentPane.h"

#include "desktop/documents/DocumentList.h"
#include "desktop/documents/DocumentModel.h"
#include "desktop/icons/CommandLook.h"
#include "desktop/preview/PreviewPane.h"
#include "platform/services/ToolStrips.h"
#include "platform/view/TreeTableView.h"

#include <QAction>
#include <QHBoxLayout>
#include <QMenu>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

constexpr unsigned c_open = 7749;
/// What is on or off for a document: its format, its name, its preview.
constexpr unsigned c_boxes[] = {7750, 7751, 7784};

constexpr int c_usualHeight = 240;
constexpr int c_smallestBody = 60;
constexpr QSize c_iconSize(20, 20);

/// The columns that a double click opens the editor in.
bool IsEditable(const std::wstring& column) {
    return column == L"format" || column == L"marking" || column == L"comment";
}

} // namespace

DocumentPane::DocumentPane(QWidget* parent)
    : QWidget(parent), m_fold(new QAction(tr("Docume&nts"), this)),
      m_go(new QAction(tr("&Go to Documents and Back"), this)), m_parts(new QSplitter),
      m_list(new DocumentList), m_preview(new PreviewPane) {
    m_fold->setCheckable(true);
    m_fold->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_D));
    m_go->setShortcut(QKeySequence(Qt::Key_F6));
    connect(m_fold, &QAction::triggered, this, [this](bool isOn) {
        SetOpen(isOn);
        isOn ? m_list->setFocus() : emit Left();
    });
    connect(m_go, &QAction::triggered, this, &DocumentPane::GoToList);
    m_parts->addWidget(m_list);
    m_parts->addWidget(m_preview);
    m_parts->setStretchFactor(0, 2);
    m_parts->setStretchFactor(1, 1);
    m_parts->setChildrenCollapsible(false);
    m_preview->hide();
    m_parts->setMinimumHeight(c_smallestBody);
    m_list->installEventFilter(this);
    connect(m_list, &DocumentList::CellOpened, this, [this](const QModelIndex& cell) {
        const auto& head = m_list->GetModel().GetHeads()[static_cast<std::size_t>(cell.column())];
        IsEditable(head.column.key) ? EditSelected() : Run(c_open);
    });
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(MakeBar());
    layout->addWidget(m_parts, 1);
    setAcceptDrops(true);
    SetOpen(false);
}

DocumentPane::~DocumentPane() {
    ShowBox(nullptr, nullptr);
}

QWidget* DocumentPane::MakeBar() {
    m_foldButton = new QToolButton;
    m_foldButton->setText(tr("Documents"));
    m_foldButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_foldButton->setAutoRaise(true);
    m_foldButton->setFocusPolicy(Qt::NoFocus);
    m_foldButton->setToolTip(tr("Shows the documents of the selected row (%1)")
                                 .arg(m_fold->shortcut().toString(QKeySequence::NativeText)));
    connect(m_foldButton, &QToolButton::clicked, m_fold, &QAction::trigger);
    m_strip = new QToolBar;
    m_strip->setIconSize(c_iconSize);
    auto* const bar = new QWidget;
    auto* const layout = new QHBoxLayout(bar);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->addWidget(m_foldButton);
    layout->addWidget(m_strip);
    layout->addStretch();
    return bar;
}

void DocumentPane::ShowBox(platform::DocumentBox* box, const platform::TreeTableView* view) {
    if (m_menu)
        m_menu->close();
    if (m_box)
        m_box->SetObserver(nullptr);
    m_box = box;
    m_view = view;
    m_list->ShowTable(box ? &box->GetDocuments() : nullptr);
    m_preview->Clear();
    m_previewTurn = 0;
    if (!box)
        return;
    box->SetObserver(this);
    FillStrip();
    box->SetVisibleByUser(m_isOpen);
    Update();
}

void DocumentPane::FillStrip() {
    const std::string& name = m_box->GetDocuments().GetToolbar();
    if (m_strip->objectName() == QString::fromStdString(name))
        return;
    m_strip->setObjectName(QString::fromStdString(name));
    m_strip->clear();
    for (const unsigned command : platform::FindToolStrip(name)) {
        if (command == 0) {
            m_strip->addSeparator();
            continue;
        }
        auto* const action = new QAction(m_icons.Get(command), TextOfCommand(command), m_strip);
        action->setCheckable(std::ranges::count(c_boxes, command) > 0);
        connect(action, &QAction::triggered, this, [this, command] { Run(command); });
        m_strip->addAction(action);
        m_actions.insert(command, action);
    }
}

DocumentPane::State DocumentPane::GetState() const {
    return {m_isOpen, m_isOpen && m_parts->isVisible() ? height() : m_height, m_parts->saveState(),
            m_list->SaveColumns()};
}

void DocumentPane::Restore(const State& state) {
    m_height = state.height;
    m_parts->restoreState(state.parts);
    m_list->RestoreColumns(state.columns);
    if (state.isOpen != m_isOpen)
        SetOpen(state.isOpen);
}

bool DocumentPane::IsBusy() const {
    return m_preview->IsBusy();
}

void DocumentPane::SetOpen(bool isOpen) {
    if (!isOpen && m_isOpen && m_parts->isVisible())
        m_height = height();
    m_isOpen = isOpen;
    m_fold->setChecked(isOpen);
    m_foldButton->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow);
    m_strip->setVisible(isOpen);
    m_parts->setVisible(isOpen);
    const int barHeight = m_foldButton->parentWidget()->sizeHint().height();
    setMaximumHeight(isOpen ? QWIDGETSIZE_MAX : barHeight);
    if (auto* const around = qobject_cast<QSplitter*>(parentWidget())) {
        const int openHeight = m_height > 0 ? m_height : c_usualHeight;
        // Folded as well: the splitter gives the tree no more room by itself.
        const int own = isOpen ? openHeight : barHeight;
        around->setSizes({std::max(around->height() - own, 0), own});
        around->handle(around->indexOf(this))->setEnabled(isOpen);
    }
    if (m_box)
        m_box->SetVisibleByUser(isOpen);
    Update();
}

void DocumentPane::GoToList() {
    if (isAncestorOf(focusWidget()) && m_list->hasFocus()) {
        emit Left();
        return;
    }
    if (!m_isOpen)
        SetOpen(true);
    m_list->setFocus();
}

void DocumentPane::OnDocumentsChanged() {
    UpdateLater();
}

void DocumentPane::OnPreviewChanged() {
    UpdateLater();
}

void DocumentPane::UpdateLater() {
    if (!std::exchange(m_isUpdating, true))
        QMetaObject::invokeMethod(this, &DocumentPane::Update, Qt::QueuedConnection);
}

void DocumentPane::Update() {
    m_isUpdating = false;
    if (!m_box || !m_isOpen)
        return;
    m_list->Update();
    m_list->SetPlaceholder(WhyEmpty());
    ShowCommands();
    ShowPreview();
}

void DocumentPane::ShowCommands() {
    const platform::DocumentTable& table = m_box->GetDocuments();
    for (auto action = m_actions.begin(); action != m_actions.end(); ++action) {
        const bool canRun = CanRun(action.key());
        (*action)->setEnabled(canRun);
        const QString tip = TipOfCommand(action.key());
        (*action)->setToolTip(canRun ? tip : tip + QLatin1Char('\n') + WhyNot(action.key()));
        // What a box has said of another document is no news of this one.
        (*action)->setChecked(canRun && table.IsCommandChecked(action.key()));
    }
}

void DocumentPane::ShowPreview() {
    const platform::DocumentBox::Preview& preview = m_box->GetPreview();
    const QString path =
        preview.isShown && m_questions.findPath ? m_questions.findPath(preview.file) : QString();
    m_preview->setVisible(!path.isEmpty());
    if (path.isEmpty())
        m_preview->Clear();
    else if (m_previewTurn != preview.turn)
        m_preview->ShowFile(path,
                            m_questions.findPart ? m_questions.findPart(preview.file) : StepPart());
    m_previewTurn = path.isEmpty() ? 0 : preview.turn;
}

} // namespace desktop
