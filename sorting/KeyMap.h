// Values by key for the length of one sort, in one piece of memory. A sort of a hundred thousand
// objects asks for half a million of them in no order, and the nodes of the standard library's maps
// lie apart: they cost more than the comparisons.
#pragma once

#include "host/UniqueMetaObjectKey.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace productTree {

/// Keys are added and never removed. The empty key has no value.
template <class Value>
class KeyMap {
public:
    /// Forgets everything and makes room for that many keys.
    void Reset(std::size_t expected) {
        std::size_t size = 16;
        while (IsTooFull(expected, size))
            size *= 2;
        m_entries.assign(size, Entry());
        m_count = 0;
    }

    /// True when the key was not there; else its value stays.
    bool Add(const UniqueMetaObjectKey& key, const Value& value) {
        if (key.IsEmpty())
            return false;
        if (IsTooFull(m_count + 1, m_entries.size()))
            Grow();
        Entry& entry = m_entries[FindPlace(key)];
        if (!entry.key.IsEmpty())
            return false;
        entry = {key, ShortHash(key), value};
        ++m_count;
        return true;
    }

    void Set(const UniqueMetaObjectKey& key, const Value& value) {
        if (!Add(key, value) && !key.IsEmpty())
            m_entries[FindPlace(key)].value = value;
    }

    /// Null for a key without value. Valid until the next key is added.
    const Value* Find(const UniqueMetaObjectKey& key) const {
        if (m_entries.empty() || key.IsEmpty())
            return nullptr;
        const Entry& entry = m_entries[FindPlace(key)];
        return entry.key.IsEmpty() ? nullptr : &entry.value;
    }

private:
    struct Entry {
        UniqueMetaObjectKey key;
        std::uint32_t hash = 0;
        Value value{};
    };

    // A quarter stays free, so that what is not there is soon known.
    static bool IsTooFull(std::size_t count, std::size_t size) { return 4 * count > 3 * size; }

    static std::uint32_t ShortHash(const UniqueMetaObjectKey& key) {
        const std::size_t hash = key.GetHash();
        return static_cast<std::uint32_t>(hash ^ (hash >> 32));
    }

    /// The place of the key, or the free one where it belongs.
    std::size_t FindPlace(const UniqueMetaObjectKey& key) const {
        const std::size_t mask = m_entries.size() - 1;
        const std::uint32_t hash = ShortHash(key);
        std::size_t i = hash & mask;
        while (!m_entries[i].key.IsEmpty() &&
               (m_entries[i].hash != hash || m_entries[i].key != key))
            i = (i + 1) & mask;
        return i;
    }

    void Grow() {
        std::vector<Entry> entries(std::max<std::size_t>(16, 2 * m_entries.size()));
        entries.swap(m_entries);
        for (Entry& entry : entries) {
            if (!entry.key.IsEmpty())
                m_entries[FindPlace(entry.key)] = std::move(entry);
        }
    }

    std::vector<Entry> m_entries;
    std::size_t m_count = 0;
};

} // namespace productTree
