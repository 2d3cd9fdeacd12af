// What the last changes of a document were about, for whoever has seen it before them.
#pragma once

#include "host/data/IfProductTreeData.h"

#include <cstdint>
#include <deque>

namespace platform {

class ChangeLog {
public:
    /// How often the document was changed.
    std::uint64_t GetStamp() const { return m_stamp; }
    /// A change has been made.
    void Note(ChangedObjects changed);
    /// All that the last `count` changes were about.
    ChangedObjects FindLast(std::uint64_t count) const;

private:
    std::uint64_t m_stamp = 0;
    /// Of late, the last one in front.
    std::deque<ChangedObjects> m_changes;
};

} // namespace platform
