// What a row that stands for others counts of the rows below it. It is kept child by child, so that
// one that changes costs the same among ten and among a hundred thousand.
#pragma once

#include "host/view/AttributeColumns.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace productTree {

/// What one row gives to the tally of the row above.
struct RowShare {
    std::uint32_t objects = 0;
    /// False: nothing was given yet.
    bool isCounted = false;
    bool isActual = true;
    /// States of the boxes beside its name.
    std::uint8_t aggrState = AttributeStateNone;
    std::uint8_t regState = AttributeStateNone;
};

class RowTally {
public:
    void Add(const RowShare& share) noexcept { Count(share, 1); }
    void Remove(const RowShare& share) noexcept { Count(share, ~std::size_t{0}); }

    std::uint32_t GetObjectCount() const { return m_objects; }
    bool AreAllActual() const { return m_outdated == 0; }
    /// A bit for each state that is there.
    unsigned GetAggrStates() const { return GetBits(m_aggrStates); }
    unsigned GetRegStates() const { return GetBits(m_regStates); }

private:
    using States = std::array<std::size_t, AttributeStateOffReadOnly + 1>;

    // Unsigned numbers wrap, so that the largest of them takes one away.
    void Count(const RowShare& share, std::size_t step) noexcept {
        if (!share.isCounted)
            return;
        m_objects += share.objects * static_cast<std::uint32_t>(step);
        m_outdated += share.isActual ? 0 : step;
        m_aggrStates[share.aggrState] += step;
        m_regStates[share.regState] += step;
    }
    static unsigned GetBits(const States& states) {
        unsigned bits = 0;
        for (std::size_t i = 0; i < states.size(); ++i)
            bits |= states[i] > 0 ? 1U << i : 0U;
        return bits;
    }

    std::uint32_t m_objects = 0;
    std::size_t m_outdated = 0;
    States m_aggrStates = {};
    States m_regStates = {};
};

} // namespace productTree
