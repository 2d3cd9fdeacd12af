// What a table says of a column, remembered for the columns asked for last: each row asks for the
// same few in the same order, and a row has as many cells as there are columns.
#pragma once

#include "columns/ColumnInfo.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace productTree {

template <class Maker>
class MakerMemory {
public:
    /// `lookUp` is asked for a column that is not remembered.
    template <class LookUp>
    const Maker& Find(const ColumnInfo& column, const LookUp& lookUp) {
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            m_next = m_next + 1 < m_entries.size() ? m_next + 1 : 0;
            if (m_entries[m_next].column.IsSame(column))
                return m_entries[m_next].maker;
        }
        // The same column as it was before, and columns that are gone, would only be searched.
        std::erase_if(m_entries,
                      [&](const Entry& entry) { return entry.column.GetId() == column.GetId(); });
        if (m_entries.size() == c_most)
            m_entries.clear();
        m_next = m_entries.size();
        m_entries.push_back({column, lookUp(column)});
        return m_entries.back().maker;
    }

private:
    struct Entry {
        /// Held, so that no other column can come to be taken for it.
        ColumnInfo column;
        Maker maker;
    };

    /// More than any panel shows; a forgotten column is only looked up again.
    static constexpr std::size_t c_most = 4096;

    std::vector<Entry> m_entries;
    std::size_t m_next = 0;
};

} // namespace productTree
