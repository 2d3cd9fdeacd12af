// What else is shown otherwise when something is said of a part: its uses, whoever shows a value of
// these by a link, and the groups that are counted with them.
#pragma once

#include "platform/product/index/RowRules.h"

#include <vector>

namespace platform {

class Dependents {
public:
    /// Both must outlive it and belong together.
    Dependents(const ProductIndex& index, const RowRules& rows) : m_index(index), m_rows(rows) {}

    /// `parts` with all that depends on them; `areCounts`: how often they are counted may be
    /// another number. More than there need be where a link leads to another property of a part
    /// than the one that has changed. Parts that the product does not have are left out.
    std::vector<UniqueMetaObjectKey> Find(const std::vector<UniqueMetaObjectKey>& parts,
                                          bool areCounts) const;

private:
    const ProductIndex& m_index;
    const RowRules& m_rows;
};

} // namespace platform
