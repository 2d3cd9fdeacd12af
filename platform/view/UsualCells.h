// Rows get their cells one like the other. This remembers in which columns, so that nothing need be
// searched while the next row gets its own.
#pragma once

#include "platform/view/NameTable.h"

#include <cstddef>
#include <vector>

namespace platform {

class TreeTableRow;

class UsualCells final {
public:
    /// The column, if the row has got its cells up to now as the rows before it and this one is
    /// next; else 0. `count` is the number of the row's cells.
    NameId TakeNext(const TreeTableRow& row, std::size_t count, const SharedText& columnId) {
        if (count == 0) {
            m_row = &row;
            m_count = 0;
        }
        if (!IsUsual(row, count) || count >= m_columns.size() ||
            !m_columns[count].id.IsSame(columnId))
            return 0;
        ++m_count;
        return m_columns[count].number;
    }
    /// The row, which had that many cells, has got one more in a column that was searched for.
    void Learn(const TreeTableRow& row, std::size_t count, const SharedText& columnId,
               NameId number) {
        if (!IsUsual(row, count) || columnId.IsEmpty())
            return Stop();
        m_columns.resize(count);
        m_columns.push_back({columnId, number});
        ++m_count;
    }
    /// Cells have come, gone or changed their columns in another way.
    void Stop() { m_row = nullptr; }

private:
    struct Column {
        SharedText id;
        NameId number = 0;
    };

    bool IsUsual(const TreeTableRow& row, std::size_t count) const {
        return m_row == &row && m_count == count;
    }

    std::vector<Column> m_columns;
    /// The row that is getting its cells, and how many it has got in the usual way.
    const TreeTableRow* m_row = nullptr;
    std::size_t m_count = 0;
};

} // namespace platform
