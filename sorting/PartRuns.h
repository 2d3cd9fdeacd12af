// Parts in the order of the host's comparator, cut into runs of parts that compare alike.
#pragma once

#include "host/data/Grouping.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace productTree {

/// Parts that compare alike, and beside each the place where it stood before the sort.
struct PartRun {
    std::span<const ConstProductPart> parts;
    std::span<const std::uint32_t> origins;
};

/// Sorts `parts` in place and calls `onRun` with each run in turn. Uses the comparator's places
/// where it offers them, and pairs else. Parts that compare alike keep their order, so that the
/// same product gives the same rows each time.
void ForEachRun(std::vector<ConstProductPart>& parts,
                const meta_data::grouping::IfGroupingComparator& comparator,
                const std::function<void(const PartRun&)>& onRun);

} // namespace productTree
