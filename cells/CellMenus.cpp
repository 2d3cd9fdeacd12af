#include "cells/CellMenus.h"

#include "host/frame/GuiApp.h"
#include "resources/ProductTreeResources.h"

namespace productTree {

MenuAction MakeMenuAction(int command) {
    return {MenuAction::c_command, static_cast<std::uint32_t>(command), 0, L"Orvex", true, nullptr};
}

MenuPtr MakeEmptyMenu() {
    IGuiApp* const app = GuiApp();
    return app ? app->CreateMenu(IGuiApp::c_noMenuItem) : nullptr;
}

MenuPtr MakeCommandMenu(std::span<const int> commands) {
    MenuPtr menu = MakeEmptyMenu();
    if (!menu)
        return nullptr;
    for (const int command : commands) {
        const ItResId text(GetResourceModule(), static_cast<unsigned>(command));
        menu->AddEntry({text.GetText(), MakeMenuAction(command), false});
    }
    return menu;
}

const MenuPtr& SharedMenu::Get() {
    if (!m_menu)
        m_menu = MakeCommandMenu(m_commands);
    return m_menu;
}

} // namespace productTree
