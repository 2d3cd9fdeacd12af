// Which rows show an object: those of its uses and groups, and of billets that name it as their
// owner. Filled by a build as it goes.
#pragma once

#include "host/UniqueMetaObjectKey.h"
#include "host/view/ITreeTableRow.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace productTree {

class RowsByKey {
public:
    /// Nothing is known until the next Close.
    void Clear() {
        m_entries.clear();
        m_isClosed = false;
    }
    void Add(const UniqueMetaObjectKey& key, ITreeTableRow& row) {
        m_entries.push_back({key.GetHash(), &row});
    }
    /// All rows are there.
    void Close() {
        std::ranges::sort(m_entries, {}, &Entry::hash);
        m_isClosed = true;
    }
    bool IsClosed() const { return m_isClosed; }
    std::size_t GetSize() const { return m_entries.size(); }

    /// Of two keys with one hash each is taken for the other, since a row that is read for nothing
    /// does no harm.
    template <class Callback>
    void ForEach(const UniqueMetaObjectKey& key, const Callback& callback) const {
        for (const Entry& entry :
             std::ranges::equal_range(m_entries, key.GetHash(), {}, &Entry::hash))
            callback(*entry.row);
    }

private:
    struct Entry {
        std::size_t hash;
        /// Counted, since the view may drop a row.
        TreeRowPtr row;
    };

    std::vector<Entry> m_entries;
    bool m_isClosed = false;
};

} // namespace productTree
