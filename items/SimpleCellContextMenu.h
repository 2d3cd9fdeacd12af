// Turns a set of commands into a shown menu, by removing all others from a menu resource.
#pragma once

#include "host/frame/PopupMenus.h"

#include <set>

namespace productTree {

class SimpleCellContextMenu {
public:
    /// True when a menu was shown. The choice goes to `handler`, which is not owned. Commands that
    /// the resource does not hold play no part; without any other there is no menu.
    static bool ShowMenu(TResId menuId, const std::set<int>& commands, LEventsHandler* handler);

    virtual ~SimpleCellContextMenu() = default;

private:
    SimpleCellContextMenu(LEventsHandler* handler, std::set<unsigned> removed, TResId menuId);
    bool Track();
    void GiveActions(IContextMenuModel* menu) const;

    LEventsHandler* m_handler;
    std::set<unsigned> m_removed;
    TResId m_menuId;
};

} // namespace productTree
