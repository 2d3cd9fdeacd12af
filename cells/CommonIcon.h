// The icon of a group row, worked out from those of its members.
#pragma once

#include "cells/ProductTreeCellImpl.h"

#include <optional>

namespace productTree {

/// Gathers the icon names of the members. Just one: that name, be it empty; none or several: mixed.
class CommonIcon {
public:
    void Add(const SharedText& icon) {
        if (!m_icon)
            m_icon = icon;
        else if (!(*m_icon == icon))
            m_differs = true;
    }

    const SharedText& Get() const { return m_icon && !m_differs ? *m_icon : sourceIcons::mixed; }

private:
    std::optional<SharedText> m_icon;
    bool m_differs = false;
};

} // namespace productTree
