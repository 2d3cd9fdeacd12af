// The top level of a product: the parts whose direct parts are laid out. Those are the embodiments,
// or the root of a product without any. Knows which uses and which objects stand in which of them.
#pragma once

#include "platform/product/index/IndexTables.h"

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace platform {

/// Places of uses, or of objects, in the document's order.
using PartPlaces = std::vector<std::uint32_t>;

class TopParts {
public:
    /// The entries are those of the model's objects and uses.
    void Rebuild(const ProductModel& model, std::span<const PartEntry> objects,
                 std::span<const PartEntry> uses);

    /// The parts that are laid out now, in their order.
    const std::vector<UniqueMetaObjectKey>& GetCurrentKeys() const { return m_currentKeys; }
    bool IsTopPart(const UniqueMetaObjectKey& key) const { return m_tops.contains(key); }

    /// Places among all uses, and among all objects, of those that stand in the top part.
    PartPlaces GetUses(const UniqueMetaObjectKey& topKey) const;
    PartPlaces GetObjects(const UniqueMetaObjectKey& topKey) const;

    /// The use, which names its embodiments and stands at that place among all uses, stands in one
    /// of these top parts.
    bool IsIn(const OccurrenceRecord& use, std::size_t place,
              const std::vector<UniqueMetaObjectKey>& topKeys) const;

private:
    /// What stands in this top part and not in all of them.
    struct Top {
        PartPlaces uses;
        PartPlaces objects;
    };

    void AddUse(const PartEntry& use, std::uint32_t place, std::uint32_t object);

    std::vector<UniqueMetaObjectKey> m_currentKeys;
    /// By place of a use that names embodiments: one of them is current, which is what is asked.
    std::vector<bool> m_isCurrent;
    std::unordered_map<UniqueMetaObjectKey, Top> m_tops;
    /// What stands in all top parts, listed once and not once for each of them.
    Top m_all;
};

} // namespace platform
