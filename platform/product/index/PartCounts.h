// How often parts stand in the embodiments of a product in memory. What follows from the product: a
// use counts once in each embodiment that holds it, or what its object has for its property
// "count"; an object without uses counts only that. A count that was typed stands in place of it
// until it is worked out again. The key of an object with uses stands for the group of uses of all
// objects that are like it: a group counts the sum over those of its uses that have rows, and
// nothing where one of them counts no number.
#pragma once

#include "platform/product/index/RowRules.h"
#include "platform/product/index/ShownValues.h"

#include <functional>
#include <set>

namespace platform {

class PartCounts {
public:
    using Keys = std::set<UniqueMetaObjectKey>;

    /// All must outlive it and belong together.
    PartCounts(const ProductModel& model, const ProductIndex& index, const RowRules& rows)
        : m_model(model), m_index(index), m_rows(rows) {}

    /// Something is counted under that key: an embodiment, or the root where there is none.
    bool IsCounted(const UniqueMetaObjectKey& embodiment) const;
    /// Empty for no count, here and below.
    PropValue Get(const PartEntry& part, const UniqueMetaObjectKey& embodiment) const;
    /// As if nothing was typed for the part itself.
    PropValue WorkOut(const PartEntry& part, const UniqueMetaObjectKey& embodiment) const;
    /// As the column of that embodiment shows it: outside of embodiment mode the column of the
    /// first one stands for all of them, and adds up the counts of a group over them.
    PropValue WorkOutShown(const PartEntry& part, const UniqueMetaObjectKey& embodiment) const;
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
    PropValue Sum(const PartEntry& object, const CountOf& count) const;
    PropValue SumOfGroup(const PartEntry& part, const Keys& embodiments) const;

    const ProductModel& m_model;
    const ProductIndex& m_index;
    const RowRules& m_rows;
};

} // namespace platform
