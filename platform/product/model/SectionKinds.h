// What the sections of a specification are for: which kind of parts stands in them, and with which
// icon. New parts and those of an imported file go by it.
#pragma once

#include "host/data/PartKinds.h"

#include <algorithm>
#include <array>

namespace platform {

struct SectionKind {
    int section;
    PartKind kind;
    int iconType;
};

inline constexpr std::array<SectionKind, 5> c_sectionKinds = {{
    {5, PartKindDocument, 26},
    {15, PartKindAssembly, 0},
    {20, PartKindDetail, 1},
    {25, PartKindStandard, 2},
    {30, PartKindOther, 26},
}};
inline constexpr SectionKind c_usualSectionKind = c_sectionKinds[2];

/// A section that is for nothing in particular takes parts.
constexpr SectionKind FindSectionKind(int section) {
    const auto* const found = std::ranges::find(c_sectionKinds, section, &SectionKind::section);
    return found == c_sectionKinds.end()
               ? SectionKind{section, c_usualSectionKind.kind, c_usualSectionKind.iconType}
               : *found;
}

/// The section that parts of a kind stand in at first.
constexpr SectionKind FindUsualSection(int kind) {
    const auto* const found = std::ranges::find(
        c_sectionKinds, kind, [](const SectionKind& entry) { return int{entry.kind}; });
    return found == c_sectionKinds.end() ? c_usualSectionKind : *found;
}

} // namespace platform
