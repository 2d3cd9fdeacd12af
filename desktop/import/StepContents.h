// Gathers products, their uses and their materials from the loaded entities of a STEP file. This is
// where the reader's entity classes end and plain data begins.
#pragma once

#include "desktop/import/ProductStructure.h"
#include "desktop/messages/FileError.h"

#include <cstddef>
#include <set>
#include <string>
#include <variant>
#include <vector>

class StepData_StepModel;

namespace desktop::step {

class TextDecoder;

/// What the entities of a file say, beside the geometry.
struct StepContents {
    ProductStructure structure;
    /// Names of other files that the file refers to.
    std::set<std::string> otherFiles;
    /// Some of the texts that are no UTF-8, each once, as they stand in the file.
    std::vector<std::string> foreignTexts;
    /// How many densities have no unit of mass per volume and are left out.
    std::size_t unclearDensities = 0;
    /// Some shape has a volume; surfaces alone have none.
    bool hasSolids = false;
};

/// An error where a use has lost one of its ends.
std::variant<StepContents, FileError> ReadContents(const StepData_StepModel& model,
                                                   const TextDecoder& decoder);

} // namespace desktop::step
