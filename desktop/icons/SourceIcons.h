// The pictures at the end of a cell that tell whether its value comes from the object's source. The
// library names them by resource; here each name has a drawing of our own.
#pragma once

#include "host/SharedText.h"

#include <QIcon>

#include <array>

namespace desktop {

/// Draws an icon when it is first asked for and keeps it.
class SourceIcons {
public:
    /// Null for an empty name, and for one that is none of the three.
    const QIcon* Find(const SharedText& name) const;
    /// The usual case, which need not be told of at each value.
    static bool IsBySource(const SharedText& name);

private:
    mutable std::array<QIcon, 3> m_icons;
};

} // namespace desktop
