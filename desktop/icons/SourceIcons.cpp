#include "desktop/icons/SourceIcons.h"

#include "desktop/icons/IconGlyphs.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace desktop {

namespace {

struct IconRow {
    std::wstring_view name;
    glyphs::Draw draw;
};

// clang-format off
constexpr std::array c_icons = {
    IconRow{L"PRODUCTTREE_VALUE_BY_SOURCE", glyphs::ClosedChain},
    IconRow{L"PRODUCTTREE_VAL_NOT_BY_SRC",  glyphs::BrokenChain},
    IconRow{L"PRODUCTTREE_BY_SRC_MIXED",    glyphs::HalfChain},
};
// clang-format on

} // namespace

bool SourceIcons::IsBySource(const SharedText& name) {
    return name.Str() == c_icons.front().name;
}

const QIcon* SourceIcons::Find(const SharedText& name) const {
    if (name.IsEmpty())
        return nullptr;
    const auto row = std::find_if(c_icons.begin(), c_icons.end(),
                                  [&](const IconRow& icon) { return icon.name == name.Str(); });
    if (row == c_icons.end())
        return nullptr;
    QIcon& icon = m_icons[static_cast<std::size_t>(row - c_icons.begin())];
    if (icon.isNull())
        icon = glyphs::MakeIcon(row->draw);
    return &icon;
}

} // namespace desktop
