// The levels of a product that has assemblies in it. A model shows one of them as its root and
// objects, and everything else that works on a model knows just that one. Entering another level
// puts the records of the shown one back and takes out those of the other.
//
// An object is one record wherever it stands: name, designation, section, material, mass, comment
// and all other values are the same at all levels. Its standing belongs to the level: uses with
// what is their own, position, typed counts, group, billets, and what owns it there.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <cstddef>

namespace platform {

/// All parts are shown up to that many.
inline constexpr std::size_t c_mostParts = 2'000'000;

enum class LevelFault {
    None,
    /// The product has no such assembly.
    Missing,
    /// The uses multiply to more parts than anybody could look at.
    TooManyParts
};

inline bool HasLevels(const ProductModel& model) {
    return !model.assemblies.empty();
}
/// The use has something of its own in place of what it has from its object.
inline bool HasOwn(const OccurrenceRecord& use) {
    return !use.properties.empty() || !use.links.empty() || !use.counts.empty();
}
/// The object is an assembly of which the components are known.
bool OpensLevel(const ProductModel& model, const UniqueMetaObjectKey& object);
/// The assembly is the product itself, or a part of it at any depth.
bool IsInProduct(const ProductModel& model, const UniqueMetaObjectKey& assembly);
/// The direct components of the product itself, as a file has them.
ProductLevel GetHome(const ProductModel& model);

/// All records must be put back before: those of all objects stand in `objectsBelow`, and the
/// level's assembly has its components.
void TakeOut(ProductModel& model, const ProductLevel& level);
/// With a fault nothing has changed.
LevelFault EnterLevel(ProductModel& model, const ProductLevel& level);

/// All records are put back, also those of a model without assemblies, whose root is one then: the
/// home's components stand in the first of the assemblies, and all objects in `objectsBelow`.
void PutAllBack(ProductModel& model);
/// The way back to the home, without what nothing uses.
void TakeAllOut(ProductModel& model);

/// The model at its home, without what nothing uses any more, and without sums.
ProductModel MakeSaved(const ProductModel& model);

/// The assemblies below and with `top`, users before what they use. A cycle is passed over.
std::vector<const AssemblyRecord*> SortAssemblies(const ProductModel& model,
                                                  const UniqueMetaObjectKey& top);
/// The first assembly below and with `top` that the object is a direct component of; the null key
/// for none.
UniqueMetaObjectKey FindUser(const ProductModel& model, const UniqueMetaObjectKey& top,
                             const UniqueMetaObjectKey& object);
/// The assembly is a component of itself, through others or directly; null: there is none.
const AssemblyRecord* FindAssemblyCycle(const ProductModel& model);
/// Which components the assembly has, wherever they are held.
const std::vector<ObjectRecord>& GetComponents(const ProductModel& model,
                                               const AssemblyRecord& assembly);

/// Objects that go from the shown level live on where another assembly uses them, and are the same
/// when they come back.
void KeepBelow(ProductModel& model, const std::vector<const ObjectRecord*>& gone);
void TakeFromBelow(ProductModel& model, const std::vector<UniqueMetaObjectKey>& back);

} // namespace platform
