#include "items/SimpleCellContextMenu.h"

#include "resources/ProductTreeResources.h"

#include <utility>

namespace productTree {

SimpleCellContextMenu::SimpleCellContextMenu(LEventsHandler* handler, std::set<unsigned> removed,
                                             TResId menuId)
    : m_handler(handler), m_removed(std::move(removed)), m_menuId(menuId) {}

bool SimpleCellContextMenu::ShowMenu(TResId menuId, const std::set<int>& commands,
                                     LEventsHandler* handler) {
    if (commands.empty())
        return false;
    SArray<int> listed;
    GetPopupMenuCommandArray(menuId, listed, GetResourceModule());
    const std::set<int> all(listed.begin(), listed.end());
    std::set<unsigned> removed;
    for (const int command : all) {
        if (!commands.contains(command))
            removed.insert(static_cast<unsigned>(command));
    }
    if (removed.size() == all.size())
        return false;
    return SimpleCellContextMenu(handler, std::move(removed), menuId).Track();
}

bool SimpleCellContextMenu::Track() {
    const SArray<unsigned> removed(m_removed.begin(), m_removed.end());
    return CreateAndTrackPopupMenu(
               m_menuId, GetResourceModule(),
               [this](IContextMenuModel* menu, TResId) { GiveActions(menu); }, &removed) != 0;
}

void SimpleCellContextMenu::GiveActions(IContextMenuModel* menu) const {
    if (!menu)
        return;
    for (IContextMenuItem* const item : menu->GetItems()) {
        if (item)
            item->SetAction(
                {MenuAction::c_command, item->GetCommand(), 0, L"Orvex", true, m_handler});
    }
}

} // namespace productTree
