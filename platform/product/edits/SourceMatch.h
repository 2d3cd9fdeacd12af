// Which object of a product is which product of its source, when that is read again. Another export
// numbers everything anew, and another program spells names otherwise; so objects are known by what
// the file calls them, twins in their order, and by their numbers and components where names fail.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace platform {

class SourceMatch final {
public:
    /// Both with all records put back (PutAllBack); they must stay as they are. Objects that were
    /// deleted are among the present ones.
    SourceMatch(const ProductModel& present, const ProductModel& fresh);

    using Keys = std::unordered_map<UniqueMetaObjectKey, UniqueMetaObjectKey>;

    /// The keys of present objects by those of the fresh ones that they are.
    const Keys& Get() const { return m_keys; }
    bool IsMatched(const UniqueMetaObjectKey& present) const { return m_matched.contains(present); }

private:
    struct Candidate {
        UniqueMetaObjectKey key;
        const SourceProduct* product;
    };
    using Candidates = std::vector<Candidate>;
    /// The objects that uses are of, by the uses' keys.
    using UsedObjects = std::unordered_map<UniqueMetaObjectKey, UniqueMetaObjectKey>;
    /// What an object is known by; empty: it can't be known so.
    using Trait = std::wstring (*)(const Candidate& candidate);

    void CollectCandidates();
    static UsedObjects ListUses(const ProductModel& model);
    void Pair(const UniqueMetaObjectKey& present, const UniqueMetaObjectKey& fresh);
    void PairByTrait(Trait trait, bool isForOneOnly);
    void PairByNumbers();
    void PairByComponents();

    const ProductModel& m_present;
    const ProductModel& m_fresh;
    std::vector<SourceProduct> m_deleted;
    Candidates m_presentObjects;
    Candidates m_freshObjects;
    Keys m_keys;
    std::unordered_set<UniqueMetaObjectKey> m_matched;
};

} // namespace platform
