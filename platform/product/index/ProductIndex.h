// Finds what a product model holds: a part by its key in one look, and what hangs together with an
// object without a walk over the model. Made by MemoryProduct after each change of the model, which
// it points into; knows nothing of the host's interfaces.
#pragma once

#include "platform/product/index/IndexTables.h"
#include "platform/product/index/ReadAhead.h"
#include "platform/product/index/TopParts.h"

#include <span>
#include <vector>

namespace platform {

/// Where in the model a part stands.
struct PartPlace {
    /// Among the objects; `none` for the root.
    std::size_t object = none;
    /// Among the uses of its object; `none` for the object itself.
    std::size_t use = none;

    static constexpr std::size_t none = static_cast<std::size_t>(-1);
};

class ProductIndex {
public:
    /// Everything is made anew. Of several records with one key the first counts. Objects are
    /// grouped by what they hold, as if no property were linked.
    void Rebuild(const ProductModel& model);
    /// Records have come, gone or moved since the last time, or say other things of other parts:
    /// each that stays has the attributes and values that the index knows of. The same outcome for
    /// a fraction of the cost, but that objects without links keep the grouping that they have.
    void Rearrange(const ProductModel& model);
    /// Takes over a value of a part's record, in place. Grouping stays as it was.
    void Update(const PartEntry& part, unsigned long number);
    /// Takes over whether counts were typed for the part.
    void UpdateCounts(const PartEntry& part) { m_tables.parts[PlaceOf(part)].ReadOwnership(); }
    /// Groups the object by what is shown of it. True when that makes a difference.
    bool Regroup(const PartEntry& object, const SharedText& name, const PropValue& material,
                 const PropValue& mass);

    /// Null for a key that the model does not have.
    const PartEntry* Find(const UniqueMetaObjectKey& key) const {
        // A panel asks about one row many times before it comes to the next.
        return m_last && m_last->key.IsSame(key) ? m_last : FindAnew(key);
    }
    /// The parts that will be read next, in their order.
    void ExpectReads(const std::vector<UniqueMetaObjectKey>& keys);
    /// Bracket a walk over all rows.
    void BeginWalk() { m_readAhead.Begin(); }
    void EndWalk() { m_readAhead.End(); }

    PartPlace GetPlace(const PartEntry& part) const;
    const PartEntry& GetRoot() const { return m_tables.parts.front(); }
    /// The parts with links of their own.
    const std::vector<const PartEntry*>& GetLinkedParts() const { return m_tables.linkedParts; }
    std::size_t GetLinkCount() const { return m_tables.linkCount; }
    bool AreMassesLinked() const { return m_tables.areMassesLinked; }
    /// Of these, those with a link to a property of that part.
    std::span<const PartEntry* const> GetLinkedTo(const UniqueMetaObjectKey& part) const;

    /// In the document's order, without the root.
    std::span<const PartEntry> GetObjects() const;
    std::span<const PartEntry> GetUses() const;
    std::span<const PartEntry> GetUsesOf(const PartEntry& object) const;
    /// The same parts in the order of keys.
    const std::vector<const PartEntry*>& GetObjectsByKey() const { return m_tables.objectsByKey; }
    const std::vector<const PartEntry*>& GetUsesByKey() const { return m_tables.usesByKey; }

    const TopParts& GetTopParts() const { return m_topParts; }
    /// The part is a use and stands in one of these top parts.
    bool IsInTopParts(const PartEntry& part, const std::vector<UniqueMetaObjectKey>& topKeys) const;
    bool IsUsedInStyle(const PartEntry& part, meta_data::SP::StyleId style) const;

    /// The objects that name the object as their parent or their billet's owner, in the document's
    /// order.
    std::span<const PartEntry* const> GetChildren(const UniqueMetaObjectKey& object) const;
    std::span<const PartEntry* const> GetBillets(const UniqueMetaObjectKey& object) const;

private:
    void Make(const ProductModel& model, bool areRecordsKnown);
    const PartEntry* FindAnew(const UniqueMetaObjectKey& key) const;
    std::size_t PlaceOf(const PartEntry& part) const {
        return static_cast<std::size_t>(&part - m_tables.parts.data());
    }

    meta_data::SP::StyleId m_currentStyle = 0;
    IndexTables m_tables;
    PropertyLayouts m_layouts;
    SharedParts m_sharedParts;
    SharedSections m_sharedSections;
    TopParts m_topParts;
    /// What was found last.
    mutable const PartEntry* m_last = nullptr;
    mutable ReadAhead m_readAhead;
};

} // namespace platform
