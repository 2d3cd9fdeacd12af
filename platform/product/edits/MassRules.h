// Masses that follow from something else: that of an object with a volume from its density, that of
// the product from those of its parts. Used by MemoryProduct at each step, and by whoever has
// measured volumes.
#pragma once

#include "platform/product/edits/ModelEdits.h"

#include <utility>
#include <vector>

namespace platform {

/// By objects' keys, in cubic metres.
using PartVolumes = std::vector<std::pair<UniqueMetaObjectKey, double>>;

/// What an object of that volume and density weighs; an empty value without a density.
PropValue MakeMass(double volume, const PropValue& density);

/// Notes the volumes, and gives the objects that have a density their masses. The product's own is
/// worked out by MemoryProduct, where it is a sum. Objects that the model does not have are
/// ignored, and so are volumes that are no positive numbers.
void ApplyVolumes(ProductModel& model, const PartVolumes& volumes);

/// The masses that have to be written after what the editor has written: those of objects whose
/// density was changed and whose mass was not, those of the assemblies among the objects, and then
/// the product's. Empty: all agree.
std::vector<HeldValue> FindMassesByDensity(ModelEditor& editor);
std::vector<HeldValue> FindAssemblyMasses(ModelEditor& editor);
std::vector<HeldValue> FindProductMass(ModelEditor& editor);

/// What a mass is added up from.
struct MassesBelow {
    /// The parts at the ends of the structure, each once.
    std::size_t parts = 0;
    /// Those without a mass, for which the sum has no value.
    std::vector<UniqueMetaObjectKey> without;
};

/// Of the product or an assembly, by the rule of their sums. Nothing for an object of which the
/// mass is no sum.
MassesBelow FindMassesBelow(const ProductModel& model, const ProductIndex& index,
                            const PartEntry& object);

} // namespace platform
