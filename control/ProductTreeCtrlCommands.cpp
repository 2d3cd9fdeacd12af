// The commands of the panel as a whole.

#include "columns/PropertyKeys.h"
#include "control/EditFrame.h"
#include "host/data/IfProductTreeData.h"
#include "host/view/ITreeTableModel.h"
#include "items/ProductTreeItemImpl.h"

#include <algorithm>
#include <iterator>

namespace productTree {

namespace {

/// CM_PRODUCT_TREE_CALCULATE_POSITIONS.
constexpr int c_calculatePositions = 7766;

} // namespace

void ProductTreeCtrl::OnToolbarCommand(int command, std::int64_t /*data*/) {
    struct Command {
        int id;
        void (ProductTreeCtrl::*run)();
    };
    static constexpr Command commands[] = {
        {c_calculatePositions, &ProductTreeCtrl::CalculatePositions},
    };
    const auto found = std::ranges::find(commands, command, &Command::id);
    if (found != std::end(commands))
        (this->*found->run)();
}

bool ProductTreeCtrl::CanCalculate() const {
    if (!m_data || !m_tree || !m_data->CanCalculatePositions())
        return false;
    const std::vector<std::wstring> columns = m_tree->GetColumnIds();
    if (std::ranges::find(columns, keys::position) == columns.end())
        return false;
    const ITreeTableRow* const root = m_tree->GetRootRow(0);
    const ProductTreeItemImpl* const item = root ? FindItemOfRow(*root) : nullptr;
    return item && (item->CanSetPosition() || item->CanClearPosition());
}

void ProductTreeCtrl::UpdateCommandStates() {
    m_tree->ShowCommand(c_calculatePositions, CanCalculate());
}

// Rows that get no number lose the one they have.
void ProductTreeCtrl::CalculatePositions() {
    if (!CanCalculate())
        return;
    RunEdit([this] {
        TreeActionResult result;
        ProductTreeItemImpl& root = *FindItemOfRow(*m_tree->GetRootRow(0));
        ProductInfObjChangesResult changes;
        root.SetPosition(m_data->GetFirstPosition(), changes);
        root.ClearPosition(changes);
        if (changes.IsExistsChanges()) {
            m_data->CommitChanges(changes);
            result.action = TreeActionResult::Synchronise;
        }
        return result;
    });
}

} // namespace productTree
