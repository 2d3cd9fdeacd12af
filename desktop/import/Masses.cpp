#include "desktop/import/Masses.h"

#include <algorithm>

namespace desktop::step {

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

} // namespace desktop::step
