// The pictures before the rows' names, and those of documents. The library names an icon by the
// number of a resource; here each number in use has a drawing of our own.
#pragma once

#include <QIcon>

#include <unordered_map>
#include <vector>

namespace desktop {

/// Draws an icon when it is first asked for and keeps it.
class RowIcons {
public:
    /// The null icon for 0; that of any other object for a number without a drawing.
    const QIcon& Get(int number) const;

    /// Numbers with a drawing, each once.
    static std::vector<int> GetNumbers();

private:
    mutable std::unordered_map<int, QIcon> m_icons;
};

} // namespace desktop
