// The menus of cells and of heads, and the same commands by key: what the panel offers for a cell
// or a head is shown as a menu, listed, or looked through for the command of a key. It never says
// what can be done; the panel does. A choice is sent when the menu has closed, by whoever hears of
// it.
#pragma once

#include "desktop/icons/CommandIcons.h"
#include "host/frame/PopupMenus.h"

#include <QObject>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QPointer>

#include <functional>
#include <map>
#include <optional>

class QAction;
class QMenu;

namespace desktop {

class PanelTree;

class ContextMenus final : public QObject, public IPopupMenuTracker {
    Q_OBJECT

public:
    explicit ContextMenus(PanelTree& tree);

    /// Puts the commands that have keys into the menu, those of the current cell in one of its own.
    void AddActions(QMenu& menu);
    /// The panel is about to go: an open menu closes, and what was chosen is forgotten.
    void Close();
    /// Sends what was chosen, once. Called behind Chosen.
    void SendChosen();
    /// Does what choosing the command in the menu of the current cell does.
    void Choose(unsigned command);

    /// What the program itself has for a cell, behind what the panel offers.
    using Addition = std::function<void(QMenu& menu, const QModelIndex& cell)>;
    void SetAddition(Addition addition) { m_addition = std::move(addition); }

    bool Track(const IContextMenuModel& menu) override;

signals:
    /// Never from inside a call of the panel.
    void Chosen(unsigned command);
    /// Nothing is offered there, or not what the user wants, for that reason.
    void NothingOffered(const QString& reason);

private:
    void ShowCellMenu(const QModelIndex& cell, QPoint place);
    void ShowHeadMenu(int column, QPoint place);
    void ShowMenu(const IContextMenuModel& menu);
    void TellChosen(unsigned command);
    /// What the panel offers in the cell; the menu is taken for shown if `wanted` is in it.
    void Ask(const QModelIndex& cell, unsigned wanted);
    void EnableOffered(bool areOffered);
    QString CaptionOf(int column) const;
    QString WhyNotIn(const QModelIndex& cell) const;

    PanelTree& m_tree;
    CommandIcons m_icons;
    /// By command, those of the current cell.
    std::map<unsigned, QAction*> m_actions;
    QPointer<QMenu> m_menu;
    QPoint m_place;
    /// Of which the menu is; invalid for that of a head.
    QPersistentModelIndex m_cell;
    Addition m_addition;
    /// The panel is only asked; 0 is no command.
    std::optional<unsigned> m_wanted;
    bool m_isOffering = false;
    /// What the menu that was asked for last holds.
    std::map<unsigned, MenuAction> m_offered;
    std::optional<MenuAction> m_chosen;
};

} // namespace desktop
