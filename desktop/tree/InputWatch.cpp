#include "desktop/tree/InputWatch.h"

#include "desktop/tree/TreeItemModel.h"

#include <algorithm>

namespace desktop {

InputWatch::InputWatch(const QModelIndexList& cells)
    : m_anyCell(cells.isEmpty() ? QModelIndex() : cells.front()), m_cells(cells) {
    for (const QModelIndex& cell : cells) {
        m_before.push_back(Look(cell));
        m_editable += TreeItemModel::LookOf(cell).TakesValues() ? 1 : 0;
    }
}

std::optional<int> InputWatch::CountHolders(const QString& text) const {
    if (!m_anyCell.isValid())
        return std::nullopt;
    return static_cast<int>(std::ranges::count_if(
        m_cells, [&](const QModelIndex& cell) { return StandsIn(cell, text); }));
}

int InputWatch::CountTakers(const QVariant& input, bool areAllAsked) const {
    if (!m_anyCell.isValid())
        return m_editable;
    int takers = 0;
    bool areAll = true;
    for (qsizetype i = 0; i < m_cells.size(); ++i) {
        const bool isChanged = Look(m_cells[i]) != m_before[static_cast<std::size_t>(i)];
        const bool takes = isChanged || StandsIn(m_cells[i], input);
        if (areAllAsked && isChanged)
            return 1;
        areAll = areAll && takes;
        takers += takes ? 1 : 0;
    }
    return areAllAsked && !areAll ? 0 : takers;
}

bool InputWatch::StandsIn(const QModelIndex& cell, const QVariant& input) {
    const platform::TreeTableRow& row = TreeItemModel::RowOf(cell);
    if (row.GetChildCount() == 0 || !row.GetParentRow()) {
        const Shown shown = Look(cell);
        return input == shown.value || input.toString() == shown.text;
    }
    const auto& model = static_cast<const TreeItemModel&>(*cell.model());
    for (std::size_t i = 0; i < row.GetChildCount(); ++i) {
        if (!StandsIn(model.IndexOf(row.GetChildRow(i), cell.column()), input))
            return false;
    }
    return true;
}

InputWatch::Shown InputWatch::Look(const QModelIndex& cell) {
    return {cell.data(Qt::EditRole), cell.data(Qt::DisplayRole).toString()};
}

} // namespace desktop
