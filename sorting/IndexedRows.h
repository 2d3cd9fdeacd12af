// Rows with their places in the document's order, to be brought into it.
#pragma once

#include "host/data/Grouping.h"
#include "sorting/ProductTreeRowInfo.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace productTree {

/// Made to be used again and again: what it holds is taken out in order, its room stays.
class IndexedRows {
public:
    std::size_t GetSize() const { return m_rows.size(); }

    ProductTreeRowInfo& Add(const InfObjIndex& index) {
        m_order.emplace_back(index, static_cast<std::uint32_t>(m_rows.size()));
        return m_rows.emplace_back();
    }

    /// Calls `callback` with each row in order and is empty afterwards. Rows of one place come in
    /// the order in which they were added. The callback may take the row, and must not add any.
    template <class Callback>
    void TakeInOrder(const Callback& callback) {
        if (!std::ranges::is_sorted(m_order))
            std::ranges::sort(m_order);
        for (const auto& [index, row] : m_order)
            callback(std::move(m_rows[row]), index);
        Clear();
    }

    void Clear() {
        m_rows.clear();
        m_order.clear();
    }

private:
    std::vector<ProductTreeRowInfo> m_rows;
    std::vector<std::pair<InfObjIndex, std::uint32_t>> m_order;
};

} // namespace productTree
