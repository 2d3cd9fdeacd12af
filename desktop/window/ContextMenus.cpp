#include "desktop/window/ContextMenus.h"

#include "desktop/icons/CommandLook.h"
#include "desktop/icons/MenuLetters.h"
#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"

#include <QAction>
#include <QMenu>
#include <QScopedValueRollback>

#include <utility>

namespace desktop {

namespace {

// The commands of a cell that have keys, in the order of its menu.
constexpr unsigned c_cellCommands[] = {7753, 7755, 7754, 7759, 7758};

QString MakeText(const IContextMenuItem& item) {
    return EntryOfCommand(QString::fromStdWString(item.GetText().Str()),
                          KeyOfCommand(item.GetCommand()));
}

} // namespace

ContextMenus::ContextMenus(PanelTree& tree) : QObject(&tree), m_tree(tree) {
    connect(&tree, &PanelTree::CellMenuWanted, this, &ContextMenus::ShowCellMenu);
    connect(&tree, &PanelTree::HeadMenuWanted, this, &ContextMenus::ShowHeadMenu);
}

void ContextMenus::AddActions(QMenu& menu) {
    QMenu* const cell = menu.addMenu(tr("This cell"));
    for (const unsigned command : c_cellCommands) {
        QAction* const action = cell->addAction(m_icons.Get(command), TextOfCommand(command), this,
                                                [this, command] { Choose(command); });
        action->setShortcut(KeyOfCommand(command));
        m_actions.emplace(command, action);
    }
    MarkLetters(cell->actions());
    connect(cell, &QMenu::aboutToShow, this, [this] { EnableOffered(true); });
    // A key works at any time, and says why if it does nothing.
    connect(cell, &QMenu::aboutToHide, this, [this] { EnableOffered(false); });
    QAction* const show =
        menu.addAction(tr("Menu of the cell"), &m_tree, &PanelTree::AskForCellMenu);
    show->setShortcuts({QKeySequence(Qt::SHIFT | Qt::Key_F10), QKeySequence(Qt::Key_Menu)});
    menu.addAction(tr("Menu of the column"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F10),
                   &m_tree, &PanelTree::AskForHeadMenu);
}

void ContextMenus::EnableOffered(bool areOffered) {
    const QModelIndex current = m_tree.MenuCellOf(m_tree.currentIndex());
    m_offered.clear();
    if (areOffered && current.isValid())
        Ask(current, 0);
    for (const auto& [command, action] : m_actions)
        action->setEnabled(!areOffered || m_offered.contains(command));
}

void ContextMenus::Close() {
    m_chosen.reset();
    if (m_menu)
        m_menu->close();
}

void ContextMenus::TellChosen(unsigned command) {
    // The panel may have gone since.
    if (m_chosen)
        emit Chosen(command);
}

void ContextMenus::SendChosen() {
    if (const std::optional<MenuAction> chosen = std::exchange(m_chosen, std::nullopt))
        RunMenuAction(*chosen);
}

QString ContextMenus::CaptionOf(int column) const {
    return m_tree.model()->headerData(column, Qt::Horizontal).toString();
}

void ContextMenus::ShowCellMenu(const QModelIndex& cell, QPoint place) {
    if (!cell.isValid()) {
        emit NothingOffered(tr("No row is chosen"));
        return;
    }
    // The Menu key may arrive twice.
    if (m_menu && m_menu->isVisible())
        return;
    m_place = place;
    m_cell = cell;
    m_isOffering = false;
    const QString column = CaptionOf(cell.column());
    TreeItemModel::ViewOf(cell).ShowRowMenuByUser(TreeItemModel::RowOf(cell),
                                                  TreeItemModel::HeadOf(cell).id);
    if (!m_isOffering)
        emit NothingOffered(tr("%1: there is nothing to choose from in this row").arg(column));
}

void ContextMenus::ShowHeadMenu(int column, QPoint place) {
    if (m_menu && m_menu->isVisible())
        return;
    m_place = place;
    m_cell = QPersistentModelIndex();
    m_isOffering = false;
    auto& model = static_cast<TreeItemModel&>(*m_tree.model());
    const std::wstring id = model.GetHeads()[static_cast<std::size_t>(column)].id;
    const QString caption = CaptionOf(column);
    model.GetView().ShowColumnMenuByUser(id);
    if (!m_isOffering)
        emit NothingOffered(tr("%1: there is nothing to choose from for this column").arg(caption));
}

void ContextMenus::Ask(const QModelIndex& cell, unsigned wanted) {
    const QScopedValueRollback asking(m_wanted, std::optional(wanted));
    TreeItemModel::ViewOf(cell).ShowRowMenuByUser(TreeItemModel::RowOf(cell),
                                                  TreeItemModel::HeadOf(cell).id);
}

QString ContextMenus::WhyNotIn(const QModelIndex& cell) const {
    if (!cell.isValid())
        return tr("no row is chosen");
    if (m_tree.selectionModel()->selectedRows().size() > 1)
        return tr("not possible for several rows at once");
    return tr("not possible for %1 in this row").arg(CaptionOf(cell.column()));
}

void ContextMenus::Choose(unsigned command) {
    const std::optional<QModelIndex> cell = m_tree.TakeCellForMenu();
    if (!cell)
        return;
    m_offered.clear();
    if (cell->isValid())
        Ask(*cell, command);
    const auto found = m_offered.find(command);
    if (found == m_offered.end()) {
        emit NothingOffered(TextOfCommand(command) + QStringLiteral(": ") + WhyNotIn(*cell));
        return;
    }
    m_chosen = found->second;
    emit Chosen(command);
}

bool ContextMenus::Track(const IContextMenuModel& menu) {
    m_offered.clear();
    for (const IContextMenuItem* const item : menu.GetItems()) {
        if (item)
            m_offered.emplace(item->GetCommand(), item->GetAction());
    }
    if (m_wanted)
        return m_offered.contains(*m_wanted);
    m_isOffering = true;
    ShowMenu(menu);
    return true;
}

void ContextMenus::ShowMenu(const IContextMenuModel& menu) {
    auto* const shown = new QMenu(&m_tree);
    for (const IContextMenuItem* const item : menu.GetItems()) {
        if (!item) {
            shown->addSeparator();
            continue;
        }
        const unsigned command = item->GetCommand();
        QAction* const action = shown->addAction(m_icons.Get(command), MakeText(*item));
        connect(action, &QAction::triggered, this, [this, command, chosen = item->GetAction()] {
            m_chosen = chosen;
            QMetaObject::invokeMethod(
                this, [this, command] { TellChosen(command); }, Qt::QueuedConnection);
        });
    }
    if (m_addition && m_cell.isValid())
        m_addition(*shown, m_cell);
    MarkLetters(shown->actions());
    connect(shown, &QMenu::aboutToHide, shown, &QObject::deleteLater);
    m_menu = shown;
    shown->popup(m_place);
}

} // namespace desktop
