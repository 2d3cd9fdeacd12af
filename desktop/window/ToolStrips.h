// The tool strips of the panel, and their commands as actions that strips and menus share. An
// action is enabled and shown as the view says. Who runs the commands hears of them by a signal.
#pragma once

#include "desktop/icons/CommandIcons.h"

#include <QMap>
#include <QObject>

#include <string>

class QAction;
class QMainWindow;
class QToolBar;

namespace platform {
class TreeTableView;
}

namespace desktop {

class PanelTree;

class ToolStrips final : public QObject {
    Q_OBJECT

public:
    /// The strips stand at the window's upper edge. Keys of commands that can't be run are told of
    /// while the tree has them.
    ToolStrips(QMainWindow& window, PanelTree& tree);

    /// Of a command of the strips; null for any other.
    QAction* GetAction(unsigned command) const { return m_actions.value(command); }
    /// The second strip is for others to fill: it is shown while something stands on it.
    QToolBar& GetAdditional() const { return *m_additional; }
    /// Which strips the panel has now, and what their commands can do.
    void ShowState(const platform::TreeTableView& view);

signals:
    void Chosen(unsigned command);
    /// The user has pressed the key of a command that can't be run.
    void PressedInVain(unsigned command);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeActions(const char* strip);
    void Fill(QToolBar& bar, const std::string& strip) const;

    PanelTree& m_tree;
    CommandIcons m_icons;
    QMap<unsigned, QAction*> m_actions;
    QToolBar* m_main;
    QToolBar* m_additional;
};

} // namespace desktop
