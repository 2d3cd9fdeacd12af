// What ProductIndex answers from: the parts of a model in one list, with what is asked of them
// most. Made by IndexBuilder.
#pragma once

#include "host/data/GroupingRecord.h"
#include "platform/product/index/PropertyLayout.h"
#include "platform/values/OpenTable.h"

#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace platform {

using meta_data::grouping::GroupingRecord;

/// The sections that objects stand in as values, each of them once: a few for all objects.
class SharedSections {
public:
    /// An empty value for no section.
    const PropValue& Get(const SPCSection& section);
    void Clear();

private:
    struct Hash {
        std::size_t operator()(const SPCSection& section) const;
    };

    std::unordered_map<SPCSection, PropValue, Hash> m_values;
    /// Neighbours are often alike.
    const std::pair<const SPCSection, PropValue>* m_last = nullptr;
};

/// An object with what is made from it once, so that questions share instead of making.
struct ObjectEntry {
    const ObjectRecord* record = nullptr;
    /// Those of the record, one for each place of the layout.
    const PropertyValues::value_type* values = nullptr;
    const PropertyLayout* layout = nullptr;
    std::uint32_t valueCount = 0;
    bool hasMarking = false;
    /// Place of its first use among all uses, and how many they are.
    std::uint32_t firstUse = 0;
    std::uint32_t useCount = 0;
    /// What the object holds, links or not. No values where it has no such thing.
    PropValue name;
    PropValue marking;
    PropValue section;
    /// Made of what is shown.
    GroupingRecord grouping;

    /// Null when the object has no value of that number among its properties.
    const PropValue* FindProperty(unsigned long number) const {
        const std::uint32_t place = layout->Find(number);
        return place == PropertyLayout::none ? nullptr : &values[place].second;
    }

    void ReadName();
    void ReadMarking();
    void ReadSection(SharedSections& sections);
    void ReadProperties(PropertyLayouts& layouts);
    /// Groups the object as if no property were linked.
    void ReadGrouping();
};

GroupingRecord MakeGrouping(const ObjectRecord& record, const SharedText& name,
                            const PropValue& material, const PropValue& mass);

/// A part with what is asked of it most: one line of memory answers, where the model's records lie
/// wherever they were made.
struct alignas(64) PartEntry {
    UniqueMetaObjectKey key;
    /// A copy of the record's, by which a record that has moved is known again without a look at
    /// what either key says.
    UniqueMetaObjectKey recordKey;
    const PartRecord* record = nullptr;
    /// Of a use: the object that is used. Of an object: itself.
    const PartEntry* owner = nullptr;
    const ObjectEntry* object = nullptr;
    /// Equal to the record's, and shared by parts for which it says the same.
    const ProductPart* part = nullptr;
    std::int32_t kind = 0;
    std::int32_t iconType = 0;
    /// For ReadAhead alone, which does not take it for true.
    mutable std::uint32_t walkPlace = static_cast<std::uint32_t>(-1);
    /// Its properties have the values of its object, and can be changed where their columns can.
    bool isPlain : 1 = false;
    bool isUse : 1 = false;
    bool isRoot : 1 = false;
    /// Of a use: it stands in all top parts. Of an object: one of its uses does.
    bool isEverywhere : 1 = false;
    /// Of a use: it stands in embodiments that it names. Of an object: one of its uses does.
    bool isInSome : 1 = false;
    bool isShown : 1 = true;
    bool isPhantom : 1 = false;
    bool isCountMark : 1 = false;
    bool isUsedInCurrentStyle : 1 = false;
    bool isUsedInAnyStyle : 1 = false;
    bool isInGroup : 1 = false;
    bool hasLockedMarkingParts : 1 = false;
    bool isActual : 1 = true;
    bool hasSource : 1 = false;
    bool isExcludedFromCount : 1 = false;
    bool hasAggrIntoProduct : 1 = false;
    bool isAggrIntoProduct : 1 = false;
    bool hasHandler : 1 = false;
    bool hasCalculator : 1 = false;
    bool isCalculatedInProduct : 1 = false;
    /// A use with values or links in place of its object's.
    bool hasOwnValues : 1 = false;
    /// The part or, of a use, its object has links.
    bool hasLinks : 1 = false;
    bool hasReadOnlyProperties : 1 = false;
    /// There are counts that were typed for it.
    bool hasCounts : 1 = false;

    /// Looks at what the record and that of its object hold.
    void ReadOwnership();
};

/// What parts say of their attributes and of specifications, each of it once: parts have few
/// different things to say, and a walk over all of them would miss the cache at each record.
class SharedParts {
public:
    /// Lives until Clear.
    const ProductPart& Get(const ProductPart& part);
    void Clear();

private:
    struct Hash {
        std::size_t operator()(const ProductPart& part) const;
    };

    std::unordered_set<ProductPart, Hash> m_parts;
    /// Neighbours are often alike.
    const ProductPart* m_last = nullptr;
};

struct IndexTables {
    using Links = std::unordered_map<UniqueMetaObjectKey, std::vector<const PartEntry*>>;

    static constexpr std::uint32_t none = static_cast<std::uint32_t>(-1);

    struct NumberEntry {
        std::uint32_t hash = 0;
        /// A part's number and one more; 0: free.
        std::uint32_t number = 0;

        bool IsFree() const { return number == 0; }
    };

    /// The root, the objects, the uses.
    std::vector<PartEntry> parts;
    /// The root and the objects, at the same places.
    std::vector<ObjectEntry> objects;
    std::vector<const PartEntry*> objectsByKey;
    std::vector<const PartEntry*> usesByKey;
    std::vector<const PartEntry*> linkedParts;
    std::size_t linkCount = 0;
    /// The mass of a part is a value of another property.
    bool areMassesLinked = false;
    /// By the parts' numbers, which `numbers` and the hints of keys name and which stay while parts
    /// move; `none` for a part that is gone.
    std::vector<std::uint32_t> places;
    OpenTable<NumberEntry> numbers;
    Links children;
    Links billets;
    /// The parts with links to a part.
    Links linkedTo;

    std::uint32_t FindPlace(const UniqueMetaObjectKey& key) const;
    /// Has the part fetched that FindPlace will most likely find.
    void FetchAhead(const UniqueMetaObjectKey& key) const;

    /// Makes room for all parts to be entered anew.
    void ClearNumbers();
    /// There is room for that many parts more.
    bool HasRoom(std::size_t count) const;
    /// Gives the part a number by which it is found. Of several with one key the first counts.
    void Enter(const PartEntry& part);
};

} // namespace platform
