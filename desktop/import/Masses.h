// Which parts of a STEP file are worth measuring.
#pragma once

#include "desktop/import/ProductStructure.h"
#include "desktop/import/StepImport.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace desktop::step {

/// The definitions below and with `tops` that are such parts.
std::vector<std::size_t> FindPartsToMeasure(const ProductStructure& structure,
                                            const std::vector<std::size_t>& tops,
                                            MeasuredParts parts);

} // namespace desktop::step
