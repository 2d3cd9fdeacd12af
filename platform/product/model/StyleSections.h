// The sections that objects of a document can be put into: those that have rows in its style.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace platform {

struct StyleSection {
    SPCSection section;
    /// 0 on the top level; else it stands in the last one before it with less.
    std::size_t depth = 0;
};

/// In the order of the rows. The default sections without a style; none where there is a style that
/// can't be had, or one that the user's choices do not know.
std::vector<StyleSection> ListSections(const ProductModel& model);
/// The place of the section of these numbers; no value when it is not in the list.
std::optional<std::size_t> FindSection(const std::vector<StyleSection>& sections,
                                       const SPCSection& section);

/// The section that the value says, as the style names it; an empty value for no section. No value:
/// it is refused, being a text or no section of the style.
std::optional<PropValue> FitSection(const ProductModel& model, const PropValue& value);

} // namespace platform
