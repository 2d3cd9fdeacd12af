#include "desktop/window/ToolStrips.h"

#include "desktop/icons/CommandLook.h"
#include "desktop/tree/PanelTree.h"
#include "platform/services/ToolStrips.h"
#include "platform/view/TreeTableView.h"

#include <QAction>
#include <QKeyEvent>
#include <QMainWindow>
#include <QToolBar>

#include <algorithm>
#include <functional>

namespace desktop {

namespace {

constexpr const char* c_mainStrip = "PRODUCT_TREE_TOOLBAR";

QToolBar* AddBar(QMainWindow& window) {
    auto* const bar = new QToolBar(&window);
    bar->setMovable(false);
    bar->setIconSize({20, 20});
    // The usual menu would hide strips that nothing brings back.
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->hide();
    window.addToolBar(bar);
    return bar;
}

bool HasAnythingShown(const QToolBar& bar) {
    const QList<QAction*> actions = bar.actions();
    return std::any_of(actions.begin(), actions.end(), std::mem_fn(&QAction::isVisible));
}

} // namespace

ToolStrips::ToolStrips(QMainWindow& window, PanelTree& tree)
    : QObject(&window), m_tree(tree), m_main(AddBar(window)), m_additional(AddBar(window)) {
    MakeActions(c_mainStrip);
    m_tree.installEventFilter(this);
}

void ToolStrips::MakeActions(const char* strip) {
    for (const unsigned command : platform::FindToolStrip(strip)) {
        if (command == 0)
            continue;
        auto* const action = new QAction(m_icons.Get(command), TextOfCommand(command), this);
        action->setToolTip(TipOfCommand(command));
        action->setShortcut(KeyOfCommand(command));
        connect(action, &QAction::triggered, this, [this, command] { emit Chosen(command); });
        m_actions.insert(command, action);
    }
}

void ToolStrips::Fill(QToolBar& bar, const std::string& strip) const {
    const QString name = QString::fromStdString(strip);
    if (bar.objectName() == name)
        return;
    bar.setObjectName(name);
    bar.clear();
    for (const unsigned command : platform::FindToolStrip(strip)) {
        if (command == 0)
            bar.addSeparator();
        else if (QAction* const action = GetAction(command))
            bar.addAction(action);
    }
}

void ToolStrips::ShowState(const platform::TreeTableView& view) {
    Fill(*m_main, view.GetPanel().toolbar);
    m_additional->setObjectName(QString::fromStdString(view.GetPanel().additionalToolbar));
    for (auto action = m_actions.begin(); action != m_actions.end(); ++action) {
        (*action)->setVisible(view.IsCommandShown(action.key()));
        (*action)->setEnabled(view.IsCommandOffered(action.key()));
    }
    for (QToolBar* const bar : {m_main, m_additional})
        bar->setVisible(HasAnythingShown(*bar));
}

bool ToolStrips::eventFilter(QObject* watched, QEvent* event) {
    const bool isPress = event->type() == QEvent::KeyPress;
    if (!isPress && event->type() != QEvent::ShortcutOverride)
        return false;
    auto& keyEvent = static_cast<QKeyEvent&>(*event);
    const QKeySequence key(keyEvent.keyCombination());
    // An open editor has no use for the key, or it would not come here: it is no key of rows yet.
    if (m_tree.IsEditing() && key == QKeySequence(Qt::Key_Delete)) {
        event->accept();
        return true;
    }
    for (auto action = m_actions.cbegin(); isPress && action != m_actions.cend(); ++action) {
        if ((*action)->shortcut() == key && !(*action)->isEnabled()) {
            emit PressedInVain(action.key());
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace desktop
