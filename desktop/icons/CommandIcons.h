// The pictures of commands on tool strips and in menus, by the commands' numbers.
#pragma once

#include <QIcon>

#include <unordered_map>
#include <vector>

namespace desktop {

/// Draws an icon when it is first asked for and keeps it.
class CommandIcons {
public:
    /// The null icon for a command without a drawing.
    const QIcon& Get(unsigned command) const;

    /// Commands with a drawing, each once.
    static std::vector<unsigned> GetCommands();

private:
    mutable std::unordered_map<unsigned, QIcon> m_icons;
};

} // namespace desktop
