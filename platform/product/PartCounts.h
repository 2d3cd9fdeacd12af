// How often parts stand in the embodiments of a product in memory. What follows from the product: a
// use counts once in each embodiment that holds it, or what its object has for its property
// "count"; an object without uses counts only that. A count that was typed stands in place of it
// until it is worked out again. The key of an object with uses stands for the group of uses of all
// objects that are like it: a group counts the sum over those of its uses that have rows, and
// nothing where one of them counts no number.
#pragma once

#include "platform/product/ShownValues.h"

#include <functional>
#include <set>
#include <span>

namespace platform {

class PartCounts {
public:
    using Keys = std::set<UniqueMetaObjectKey>;

    /// Both must outlive it and belong together.
    PartCounts(const ProductModel& model, const ProductIndex& index)
        : m_model(model), m_index(index) {}

    /// Parts have come or gone, or other objects are alike.
    void Forget() { m_areClassesMade = false; }

    /// Something is counted under that key: an embodiment, or the root where there is none.
    bool IsCounted(const UniqueMetaObjectKey& embodiment) const;
    /// Empty for no count, here and below.
    PropValue Get(const PartEntry& part, const UniqueMetaObjectKey& embodiment) const;
    /// As if nothing was typed for the part itself.
    PropValue WorkOut(const PartEntry& part, const UniqueMetaObjectKey& embodiment) const;
    /// What was typed for the part, or for the group that its key stands for; null for nothing.
    const CountRecord* FindTyped(const PartEntry& part,
                                 const UniqueMetaObjectKey& embodiment) const;
    /// The count is a value of another property, and none can be typed.
    bool IsLinked(const PartEntry& part) const;

    /// Of several embodiments the one that is worked on, if it holds the part, else the first that
    /// does, else one of them.
    UniqueMetaObjectKey FindEmbodiment(const PartEntry& part, const Keys& embodiments) const;
    /// What was typed for the group in the first embodiment, else the sum over its uses, each in
    /// the embodiment that FindEmbodiment has for it.
    PropValue GetOfGroup(const PartEntry& part, const Keys& embodiments) const;

private:
    using CountOf = std::function<PropValue(const PartEntry& use)>;

    bool IsGroup(const PartEntry& part) const;
    bool IsIn(const PartEntry& part, const UniqueMetaObjectKey& embodiment) const;
    bool HasRow(const PartEntry& use) const;
    PropValue Sum(const PartEntry& object, const CountOf& count) const;
    /// The objects that are like this one, itself among them.
    std::span<const PartEntry* const> GetLikeObjects(const PartEntry& object) const;
    void MakeClasses() const;

    const ProductModel& m_model;
    const ProductIndex& m_index;
    /// All objects, like ones next to each other, and by an object's place among all of them the
    /// places of the first and behind the last of its kind.
    mutable std::vector<const PartEntry*> m_byLikeness;
    mutable std::vector<std::pair<std::uint32_t, std::uint32_t>> m_classes;
    mutable bool m_areClassesMade = false;
};

} // namespace platform
