// The sections of a specification as the tree lays them out: those of the document's style with
// their blocks, the default ones, or a single one without a name.
#pragma once

#include "host/SPCSection.h"
#include "host/data/Grouping.h"

#include <cstdint>
#include <vector>

class IfProductTreeData;

namespace productTree {

struct SortSection {
    SPCSection section;
    /// The text of the section's row: its own name, and behind it the names of what it stands in.
    SharedText label;
    std::vector<ConstProductPart> parts;
    /// Beside each part, in the order in which they come in, the number of its object.
    std::vector<std::uint32_t> numbers;
};

/// All sections in the order of their rows, without parts. Empty when the document's style is
/// missing.
std::vector<SortSection> MakeSortSections(const IfProductTreeData& data);

} // namespace productTree
