// Parts in the order of the host's comparator, cut into runs of parts that compare alike.
#pragma once

#include "host/data/Grouping.h"

#include <functional>
#include <span>
#include <vector>

namespace productTree {

using PartRun = std::span<const ConstProductPart>;

/// Sorts `parts` in place and calls `onRun` with each run in turn. Uses the comparator's places
/// where it offers them, and pairs else.
void ForEachRun(std::vector<ConstProductPart>& parts,
                const meta_data::grouping::IfGroupingComparator& comparator,
                const std::function<void(PartRun)>& onRun);

} // namespace productTree
