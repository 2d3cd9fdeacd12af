// What a property record of a STEP file says about a material: its name, or its density with the
// unit that the file gives for it. Called for each property while the structure is read.
#pragma once

#include <optional>
#include <string>

class StepBasic_ProductDefinition;
class StepRepr_PropertyDefinitionRepresentation;

namespace desktop::step {

struct MaterialFacts {
    /// Raw text; empty when the property is not a material's name.
    std::string name;
    /// In kg/m3.
    std::optional<double> density;
    /// There is a density, but its unit is not one of mass per volume.
    bool isDensityUnclear = false;
};

/// The product definition that the property belongs to; null for another kind of owner.
const StepBasic_ProductDefinition*
GetDefinitionOf(const StepRepr_PropertyDefinitionRepresentation& property);

MaterialFacts ReadMaterial(const StepRepr_PropertyDefinitionRepresentation& property);

} // namespace desktop::step
