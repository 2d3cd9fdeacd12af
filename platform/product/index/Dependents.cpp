#include "platform/product/index/Dependents.h"

#include <unordered_set>

namespace platform {

namespace {

class Search {
public:
    explicit Search(const ProductIndex& index) : m_index(index) {}

    void Add(const PartEntry& part) {
        if (!m_known.insert(&part).second)
            return;
        m_found.push_back(&part);
        for (const PartEntry& use : m_index.GetUsesOf(part))
            Add(use);
    }

    /// True when there was one.
    bool FollowLinks() {
        bool hasAny = false;
        for (std::size_t i = 0; i < m_found.size(); ++i) {
            for (const PartEntry* const part : m_index.GetLinkedTo(m_found[i]->key)) {
                hasAny = true;
                Add(*part);
            }
        }
        return hasAny;
    }

    /// A group is counted under the key of one of its objects.
    void AddGroups(const RowRules& rows) {
        std::unordered_set<const PartEntry*> objects;
        for (const PartEntry* const part : m_found) {
            if (!part->isRoot)
                objects.insert(part->owner);
        }
        for (const PartEntry* const object : objects) {
            for (const PartEntry* const mate : rows.GetRowMates(*object)) {
                if (m_known.insert(mate).second)
                    m_found.push_back(mate);
            }
        }
    }

    std::vector<UniqueMetaObjectKey> GetKeys() const {
        std::vector<UniqueMetaObjectKey> keys;
        keys.reserve(m_found.size());
        for (const PartEntry* const part : m_found)
            keys.push_back(part->key);
        return keys;
    }

private:
    const ProductIndex& m_index;
    std::unordered_set<const PartEntry*> m_known;
    std::vector<const PartEntry*> m_found;
};

} // namespace

std::vector<UniqueMetaObjectKey> Dependents::Find(const std::vector<UniqueMetaObjectKey>& parts,
                                                  bool areCounts) const {
    Search search(m_index);
    for (const UniqueMetaObjectKey& key : parts) {
        if (const PartEntry* const part = m_index.Find(key))
            search.Add(*part);
    }
    // A count may be a value of any property.
    const bool areLinked = search.FollowLinks();
    if (areCounts || areLinked)
        search.AddGroups(m_rows);
    return search.GetKeys();
}

} // namespace platform
