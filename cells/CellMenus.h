// The popup menus of cells and heads: a few commands of the resources each. The application makes
// them.
#pragma once

#include "host/view/ITreeTableRow.h"

#include <span>

namespace productTree {

/// What makes an entry send that command to the control.
MenuAction MakeMenuAction(int command);

/// A menu of commands, in their order; null while the application gives no menus.
MenuPtr MakeCommandMenu(std::span<const int> commands);

/// A menu without entries; null while the application gives none.
MenuPtr MakeEmptyMenu();

/// A menu that all cells of a class share: made when the first of them needs it, and kept for as
/// long as the library is loaded.
class SharedMenu {
public:
    /// `commands` outlives it.
    explicit SharedMenu(std::span<const int> commands) : m_commands(commands) {}

    /// Null while the application gives none.
    const MenuPtr& Get();

private:
    std::span<const int> m_commands;
    MenuPtr m_menu;
};

} // namespace productTree
