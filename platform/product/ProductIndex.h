// Finds what a product model holds: a part by its key in one look, and what hangs together with an
// object without a walk over the model. Made by MemoryProduct after each change of the model, which
// it points into; knows nothing of the host's interfaces.
#pragma once

#include "platform/product/ProductModel.h"
#include "platform/product/TopParts.h"
#include "platform/values/GroupingKeys.h"

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace platform {

/// An object with what is made from it once, so that questions share instead of making.
struct ObjectEntry {
    const ObjectRecord* record = nullptr;
    /// No values where the object has neither name nor marking.
    PropValue name;
    PropValue marking;
    GroupingRecord grouping;
    std::span<const std::pair<unsigned long, PropValue>> properties;
    /// Place of the number of its first property in the list of all objects'.
    std::size_t firstNumber = 0;
    /// Place of its first use among all uses, and how many they are.
    std::uint32_t firstUse = 0;
    std::uint32_t useCount = 0;
};

/// A part with what is asked of it most: one line of memory answers, where the model's records lie
/// wherever they were made.
struct PartEntry {
    UniqueMetaObjectKey key;
    const PartRecord* record = nullptr;
    /// Of a use: the object that is used. Of an object: itself.
    const PartEntry* owner = nullptr;
    const ObjectEntry* object = nullptr;
    std::int32_t kind = 0;
    std::int32_t iconType = 0;
    bool isUse : 1 = false;
    bool isRoot : 1 = false;
    /// Of a use: it stands in all top parts. Of an object: one of its uses does.
    bool isEverywhere : 1 = false;
    /// Of a use: it stands in embodiments that it names. Of an object: one of its uses does.
    bool isInSome : 1 = false;
    bool isShown : 1 = true;
    bool isCountMark : 1 = false;
    bool isUsedInCurrentStyle : 1 = false;
    bool isUsedInAnyStyle : 1 = false;
    bool isInGroup : 1 = false;
    bool hasLockedMarkingParts : 1 = false;
    bool isActual : 1 = true;
    bool isExcludedFromCount : 1 = false;
    bool hasHandler : 1 = false;
    bool hasCalculator : 1 = false;
    bool isCalculatedInProduct : 1 = false;
};

class ProductIndex {
public:
    /// Of several records with one key the first counts.
    void Rebuild(const ProductModel& model);

    /// Null for a key that the model does not have.
    const PartEntry* Find(const UniqueMetaObjectKey& key) const;

    /// In the document's order, without the root.
    std::span<const PartEntry> GetObjects() const;
    std::span<const PartEntry> GetUses() const;
    std::span<const PartEntry> GetUsesOf(const PartEntry& object) const;
    /// The same parts in the order of keys.
    const std::vector<const PartEntry*>& GetObjectsByKey() const { return m_objectsByKey; }
    const std::vector<const PartEntry*>& GetUsesByKey() const { return m_usesByKey; }

    const TopParts& GetTopParts() const { return m_topParts; }
    /// The part is a use and stands in one of these top parts.
    bool IsInTopParts(const PartEntry& part, const std::vector<UniqueMetaObjectKey>& topKeys) const;
    bool IsUsedInStyle(const PartEntry& part, meta_data::SP::StyleId style) const;

    /// The objects that name the object as their parent or their billet's owner, in the document's
    /// order.
    std::span<const PartEntry* const> GetChildren(const UniqueMetaObjectKey& object) const;
    std::span<const PartEntry* const> GetBillets(const UniqueMetaObjectKey& object) const;

    /// Null when the object has no value of that number among its properties.
    const PropValue* FindProperty(const ObjectEntry& object, unsigned long number) const;

private:
    using Links = std::unordered_map<UniqueMetaObjectKey, std::vector<const PartEntry*>>;

    struct Slot {
        std::uint32_t hash = 0;
        /// Place in m_parts and one more; 0: free.
        std::uint32_t part = 0;
    };

    void Reserve(const ProductModel& model);
    void AddObject(const ObjectRecord& record);
    void AddUses(PartEntry& owner);
    PartEntry& AddPart(const PartRecord& record, const ObjectEntry& object);
    void MakeSlots();
    const PartEntry* FindInSlots(const UniqueMetaObjectKey& key) const;
    void Link();

    meta_data::SP::StyleId m_currentStyle = 0;
    /// The root, the objects, the uses.
    std::vector<PartEntry> m_parts;
    std::vector<ObjectEntry> m_objects;
    std::vector<const PartEntry*> m_objectsByKey;
    std::vector<const PartEntry*> m_usesByKey;
    /// Apart from the values, so that finding a number stays within a line of memory.
    std::vector<std::uint32_t> m_numbers;
    std::vector<Slot> m_slots;
    Links m_children;
    Links m_billets;
    TopParts m_topParts;
};

} // namespace platform
