// The tips of the parts of designations. All rows of a panel have the same few, so that a row keeps
// the number of a set of tips and no tips.
#pragma once

#include "platform/view/NameTable.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace platform {

/// One tip a part; 0 for none.
using PartTips = std::array<NameId, 7>;

/// A set of tips; 0 is the one without any.
using PartTipsId = std::uint32_t;

class PartTipsTable final {
public:
    PartTipsTable() : m_sets(1) { m_ids.emplace(m_sets.front().tips, 0); }

    const PartTips& Get(PartTipsId id) const { return m_sets[id].tips; }
    /// The set that has another tip in that place. Sets are kept for good.
    PartTipsId With(PartTipsId id, std::size_t place, const SharedText& tip, NameTable& names);

private:
    /// Where a change of one tip led last: each row takes the same way to its set.
    struct Step {
        SharedText tip;
        PartTipsId to = 0;
    };
    struct Set {
        PartTips tips{};
        std::array<Step, std::tuple_size_v<PartTips>> steps{};
    };

    std::vector<Set> m_sets;
    std::map<PartTips, PartTipsId> m_ids;
};

} // namespace platform
