// Rows are read in one order, again and again, while their parts lie in memory in that of the
// document. This knows the order, as far as it was told or has seen it, and has the memory of the
// next few parts fetched while the present one is being read: at a hundred thousand rows most of
// the time would go into waiting for it.
#pragma once

#include "platform/product/index/IndexTables.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace platform {

class ReadAhead {
public:
    /// Between these two parts are asked for in the order of rows.
    void Begin() { m_isInWalk = true; }
    void End() { m_isInWalk = false; }
    bool IsInWalk() const { return m_isInWalk; }
    /// The parts have moved, or will be told anew.
    void Forget() { m_order.clear(); }
    /// The part will be read after those that were told before. Only the first time counts.
    void Tell(const PartEntry& part) {
        if (IsKnown(part))
            return;
        part.walkPlace = static_cast<std::uint32_t>(m_order.size());
        m_order.push_back(&part);
    }

    /// The part that will most likely be asked for after that one; null when nothing is known.
    const PartEntry* GetNext(const PartEntry& part) const { return At(part.walkPlace, 1); }
    /// The part is about to be read.
    void Note(const PartEntry& part) {
        if (!IsKnown(part))
            return Tell(part);
        // What leads to a value is there by the time that its address is needed.
        if (const PartEntry* const sixth = At(part.walkPlace, 6))
            Fetch(sixth, sizeof(*sixth));
        if (const PartEntry* const fourth = At(part.walkPlace, 4))
            Fetch(fourth->object, sizeof(*fourth->object));
        const PartEntry* const second = At(part.walkPlace, 2);
        if (second && second->object != At(part.walkPlace, 1)->object)
            Fetch(second->object->values,
                  second->object->valueCount * sizeof(*second->object->values));
    }

private:
    bool IsKnown(const PartEntry& part) const { return At(part.walkPlace, 0) == &part; }
    static void Fetch(const void* memory, std::size_t size) {
        constexpr std::size_t line = 64;
        const auto* const begin = static_cast<const char*>(memory);
        for (std::size_t i = 0; i < size; i += line)
            __builtin_prefetch(begin + i);
    }
    const PartEntry* At(std::uint32_t place, std::size_t distance) const {
        return std::size_t{place} + distance < m_order.size() ? m_order[place + distance] : nullptr;
    }

    bool m_isInWalk = false;
    std::vector<const PartEntry*> m_order;
};

} // namespace platform
