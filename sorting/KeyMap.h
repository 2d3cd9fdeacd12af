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
        m_slots.assign(size, Slot());
        m_count = 0;
    }

    /// True when the key was not there; else its value stays.
    bool Add(const UniqueMetaObjectKey& key, const Value& value) {
        if (key.IsEmpty())
            return false;
        if (IsTooFull(m_count + 1, m_slots.size()))
            Grow();
        Slot& slot = m_slots[FindSlot(key)];
        if (!slot.key.IsEmpty())
            return false;
        slot = {key, ShortHash(key), value};
        ++m_count;
        return true;
    }

    void Set(const UniqueMetaObjectKey& key, const Value& value) {
        if (!Add(key, value) && !key.IsEmpty())
            m_slots[FindSlot(key)].value = value;
    }

    /// Null for a key without value. Valid until the next key is added.
    const Value* Find(const UniqueMetaObjectKey& key) const {
        if (m_slots.empty() || key.IsEmpty())
            return nullptr;
        const Slot& slot = m_slots[FindSlot(key)];
        return slot.key.IsEmpty() ? nullptr : &slot.value;
    }

private:
    struct Slot {
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

    /// The slot of the key, or the free one where it belongs.
    std::size_t FindSlot(const UniqueMetaObjectKey& key) const {
        const std::size_t mask = m_slots.size() - 1;
        const std::uint32_t hash = ShortHash(key);
        std::size_t i = hash & mask;
        while (!m_slots[i].key.IsEmpty() && (m_slots[i].hash != hash || m_slots[i].key != key))
            i = (i + 1) & mask;
        return i;
    }

    void Grow() {
        std::vector<Slot> slots(std::max<std::size_t>(16, 2 * m_slots.size()));
        slots.swap(m_slots);
        for (Slot& slot : slots) {
            if (!slot.key.IsEmpty())
                m_slots[FindSlot(slot.key)] = std::move(slot);
        }
    }

    std::vector<Slot> m_slots;
    std::size_t m_count = 0;
};

} // namespace productTree
