#include "platform/product/edits/ChangeLog.h"

#include <utility>

namespace platform {

namespace {

/// A panel that is seen catches up at once. One that was hidden for longer reads all rows.
constexpr std::size_t c_mostKept = 64;

} // namespace

void ChangeLog::Note(ChangedObjects changed) {
    ++m_stamp;
    // Nobody is told of what was before it any more.
    if (!changed.isKnown)
        m_changes.clear();
    m_changes.push_front(std::move(changed));
    if (m_changes.size() > c_mostKept)
        m_changes.pop_back();
}

ChangedObjects ChangeLog::FindLast(std::uint64_t count) const {
    if (count > m_changes.size())
        return {};
    ChangedObjects all{true, {}};
    for (std::size_t i = 0; i < count; ++i) {
        if (!m_changes[i].isKnown)
            return {};
        all.keys.insert(all.keys.end(), m_changes[i].keys.begin(), m_changes[i].keys.end());
    }
    return all;
}

} // namespace platform
