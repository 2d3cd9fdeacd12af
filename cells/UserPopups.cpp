#include "cells/UserPopups.h"

#include "cells/CellMenus.h"

#include <algorithm>
#include <map>

namespace productTree {

namespace {

struct UserMenus {
    std::map<TeeTypPopupIns, MenuPtr> menus;
    /// How the last one was filled, whichever it was.
    std::optional<bool> fillSucceeded;
};

UserMenus& GetMenus() {
    static UserMenus menus;
    return menus;
}

} // namespace

MenuPtr GetUserPopupMenu(TeeTypPopupIns list) {
    auto& [menus, fillSucceeded] = GetMenus();
    if (fillSucceeded == false)
        return nullptr;
    if (const auto found = menus.find(list); found != menus.end())
        return found->second;
    MenuPtr menu = MakeEmptyMenu();
    if (!menu)
        return nullptr;
    menus.emplace(list, menu);
    fillSucceeded = FillUserPopupMenu(list, menu);
    return menu;
}

MenuPtr GetParticipantPopupMenu() {
    MenuPtr menu = GetUserPopupMenu(UserPopupParticipant);
    if (menu && menu->GetEntryCount() > 0)
        menu->SetAction(0, MakeMenuAction(0));
    return menu;
}

std::optional<SharedText> FindPopupText(int command, TeeTypPopupIns list) {
    SArray<int> all;
    GetCommandArrayFromPopupMenu(all, list);
    if (std::ranges::find(all, command) == all.end())
        return std::nullopt;
    SharedText text;
    GetStringFromPopupMenu(text, static_cast<unsigned>(command), list);
    return text;
}

} // namespace productTree
