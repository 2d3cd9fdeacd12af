// Updates single rows, and then each row above them once, from below to the top: what a walk over
// all rows would do if nothing else had changed.
#pragma once

#include "items/ProductTreeItemImpl.h"

#include <cstddef>
#include <unordered_set>
#include <vector>

namespace productTree {

class RowUpdates {
public:
    /// Before Run. A row that was added already is passed over.
    void Add(ITreeTableRow& row) {
        std::size_t level = 0;
        for (const ITreeTableRow* above = row.GetParent(); above; above = above->GetParent())
            ++level;
        AddAt(level, row);
    }

    void Run() {
        for (std::size_t level = m_levels.size(); level-- > 0;) {
            // Rows join the level above alone.
            const std::vector<ITreeTableRow*>& rows = m_levels[level];
            for (std::size_t i = 0; i < rows.size(); ++i) {
                const ProductTreeItemImpl* const next =
                    i + 1 < rows.size() ? FindItemOfRow(*rows[i + 1]) : nullptr;
                if (next)
                    next->FetchAhead();
                Update(level, *rows[i]);
            }
        }
    }

private:
    void AddAt(std::size_t level, ITreeTableRow& row) {
        if (!m_known.insert(&row).second)
            return;
        if (level >= m_levels.size())
            m_levels.resize(level + 1);
        m_levels[level].push_back(&row);
    }

    void Update(std::size_t level, ITreeTableRow& row) {
        ProductTreeItemImpl* const item = FindItemOfRow(row);
        if (item)
            item->UpdateThisRow();
        ITreeTableRow* const parent = row.GetParent();
        if (!parent)
            return;
        ProductTreeItemImpl* const above = FindItemOfRow(*parent);
        if (item && above)
            above->OnChildRowUpdated(*item);
        AddAt(level - 1, *parent);
    }

    std::unordered_set<const ITreeTableRow*> m_known;
    /// By how many rows stand above them.
    std::vector<std::vector<ITreeTableRow*>> m_levels;
};

} // namespace productTree
