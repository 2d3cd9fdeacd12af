#include "desktop/import/Masses.h"

#include <algorithm>

namespace desktop::step {

namespace {

using Mass = std::optional<double>;

Mass SumOfComponents(const Definition& assembly, const std::vector<Mass>& masses) {
    double sum = 0;
    for (const Use& use : assembly.uses) {
        if (!masses[use.child])
            return std::nullopt;
        sum += *masses[use.child];
    }
    return sum;
}

} // namespace

std::vector<std::size_t> FindPartsToMeasure(const ProductStructure& structure,
                                            const std::vector<std::size_t>& tops,
                                            MeasuredParts parts) {
    std::vector<std::size_t> found = SortByUse(structure, tops);
    std::erase_if(found, [&](std::size_t i) {
        const Definition& definition = structure.definitions[i];
        return definition.IsAssembly() ||
               (parts == MeasuredParts::WithDensity && !definition.material.density);
    });
    return found;
}

std::vector<Mass> ComputeDefinitionMasses(const ProductStructure& structure,
                                          const std::vector<std::size_t>& tops,
                                          const std::vector<std::optional<double>>& volumes) {
    std::vector<std::size_t> order = SortByUse(structure, tops);
    // Components before what they are components of.
    std::ranges::reverse(order);
    std::vector<Mass> masses(structure.definitions.size());
    for (const std::size_t i : order) {
        const Definition& definition = structure.definitions[i];
        if (definition.IsAssembly())
            masses[i] = SumOfComponents(definition, masses);
        else if (volumes[i] && definition.material.density)
            masses[i] = *volumes[i] * *definition.material.density;
    }
    return masses;
}

} // namespace desktop::step
