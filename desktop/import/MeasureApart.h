// Measures parts in a child process. The geometry kernel follows references without looking, so a
// damaged part ends the process that transfers it; and it can be silent for seconds, while a stop
// has to work at once. What the child takes of memory is given back with it.
#pragma once

#include "desktop/import/StepImport.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace desktop::import {

/// Called in the child for one part, to report the share of this part that is done. What it
/// changes, the caller of MeasureApart does not see.
using Measure = std::function<std::optional<double>(std::size_t part, const Progress& progress)>;

/// What `measure` gives for the parts 0 to `count` - 1, no value for those that ended their child.
/// `progress` is called in this process, with the share of all parts. No vector when it says stop.
std::optional<std::vector<std::optional<double>>>
MeasureApart(std::size_t count, const Measure& measure, const Progress& progress);

} // namespace desktop::import
