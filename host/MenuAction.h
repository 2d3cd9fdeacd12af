// What choosing an item of a menu does.
#pragma once

#include <cstdint>
#include <string>

class LEventsHandler;

struct MenuAction {
    /// That of a command, whose id is `first`. No other is sent.
    static constexpr unsigned c_command = 273;

    unsigned message = 0;
    std::uint32_t first = 0;
    std::uint32_t second = 0;
    /// Who has asked for the menu, for the host's own use.
    std::wstring source = {};
    bool isQueued = false;
    /// Whose OnCommand gets the command, with the code 0. Not owned; it may be gone when the item
    /// is chosen: nothing is sent then. Null for popup menus of cells and heads, whose commands the
    /// control gets.
    LEventsHandler* target = nullptr;

    friend bool operator==(const MenuAction&, const MenuAction&) = default;
};
