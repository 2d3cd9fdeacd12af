// A hash table in one piece of memory. Where a walk over a hundred thousand parts looks something
// up for each of them, the nodes of the standard library's tables lie apart and cost more than the
// work.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace platform {

/// An entry says by IsFree() that it is none yet; one that was filled is never freed again.
template <class Entry>
class OpenTable {
public:
    /// Forgets everything and makes room for that many entries.
    void Reset(std::size_t count) {
        std::size_t size = 2;
        // Half of them stay free, so that what is not there is soon known.
        while (size < count * 2)
            size *= 2;
        m_entries.assign(size, Entry());
    }

    /// As many entries can be filled without Reset before searches get long.
    bool HasRoom(std::size_t count) const { return count * 4 < m_entries.size() * 3; }

    /// The sought entry, or the free one where it belongs. Not before the first Reset.
    template <class IsSought>
    const Entry& Find(std::size_t hash, const IsSought& isSought) const {
        const std::size_t mask = m_entries.size() - 1; // the size is a power of two
        std::size_t i = hash & mask;
        while (!m_entries[i].IsFree() && !isSought(m_entries[i]))
            i = (i + 1) & mask;
        return m_entries[i];
    }
    template <class IsSought>
    Entry& Find(std::size_t hash, const IsSought& isSought) {
        return const_cast<Entry&>(std::as_const(*this).Find(hash, isSought));
    }

    bool IsEmpty() const { return m_entries.empty(); }

private:
    std::vector<Entry> m_entries;
};

} // namespace platform
