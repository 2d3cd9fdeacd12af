// Masses of parts and assemblies from volumes and densities.
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

/// In kilograms, by definition, from volumes in m3 by definition. An assembly has a mass when all
/// its components have one: a sum without some of them would pass for the whole.
std::vector<std::optional<double>>
ComputeDefinitionMasses(const ProductStructure& structure, const std::vector<std::size_t>& tops,
                        const std::vector<std::optional<double>>& volumes);

} // namespace desktop::step
