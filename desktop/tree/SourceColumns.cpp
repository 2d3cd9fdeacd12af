#include "desktop/tree/SourceColumns.h"

#include "platform/view/TreeTableView.h"

#include <algorithm>

namespace desktop {

namespace {

using platform::TreeTableRow;

bool HasSource(const TreeTableRow& row, const std::wstring& columnId) {
    const platform::TreeCell* const cell = row.FindCell(columnId);
    return cell && !row.GetIconOf(*cell).IsEmpty();
}

bool HasSourceBelow(const TreeTableRow& row, const std::wstring& columnId) {
    for (std::size_t i = 0; i < row.GetChildCount(); ++i) {
        const TreeTableRow& child = row.GetChildRow(i);
        if (HasSource(child, columnId) || HasSourceBelow(child, columnId))
            return true;
    }
    return false;
}

} // namespace

bool SourceColumns::Has(const platform::TreeTableView& view, const std::wstring& columnId) const {
    const auto [known, isNew] = m_known.try_emplace(columnId, false);
    const TreeTableRow* const root = isNew ? view.GetRoot() : nullptr;
    if (root)
        known->second = HasSource(*root, columnId) || HasSourceBelow(*root, columnId);
    return known->second;
}

void SourceColumns::NoteValues(const std::vector<TreeTableRow*>& rows) {
    for (auto& known : m_known) {
        known.second = known.second || std::ranges::any_of(rows, [&](const TreeTableRow* row) {
                           return HasSource(*row, known.first);
                       });
    }
}

} // namespace desktop
