// A list of row ids with an index beside it, so that a row finds out whether its id is in the list
// without comparing it with each. The answer is that of a scan with Equals.
#pragma once

#include "items/ProductTreeItemId.h"

#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace productTree {

class RowIdIndex {
public:
    /// Borrows the ids.
    explicit RowIdIndex(const std::vector<std::shared_ptr<ProductTreeItemId>>& ids) {
        m_ids.reserve(ids.size());
        for (const auto& id : ids)
            Add(*id);
    }

    /// Borrows the id.
    void Add(const ProductTreeItemId& id) {
        m_hashes.clear();
        id.AppendHashes(m_hashes);
        for (const std::size_t hash : m_hashes)
            m_ids.emplace(hash, &id);
    }

    bool IsEmpty() const { return m_ids.empty(); }

    bool Contains(const ProductTreeItemId& wanted) const {
        m_hashes.clear();
        wanted.AppendHashes(m_hashes);
        for (const std::size_t hash : m_hashes) {
            const auto [begin, end] = m_ids.equal_range(hash);
            for (auto found = begin; found != end; ++found) {
                if (found->second->Equals(wanted))
                    return true;
            }
        }
        return false;
    }

private:
    std::unordered_multimap<std::size_t, const ProductTreeItemId*> m_ids;
    mutable std::vector<std::size_t> m_hashes;
};

/// The rows that have taken part in a change, by their ids, so that none takes part twice.
class ChangedRows {
public:
    void Add(std::shared_ptr<ProductTreeItemId> id) {
        m_index.Add(*id);
        m_ids.push_back(std::move(id));
    }
    bool Contains(const ProductTreeItemId& id) const { return m_index.Contains(id); }

private:
    std::vector<std::shared_ptr<ProductTreeItemId>> m_ids;
    RowIdIndex m_index{{}};
};

} // namespace productTree
