#include "columns/headers/RoughnessHeaders.h"

#include "cells/CellCommands.h"
#include "cells/CellMenus.h"
#include "cells/RoughnessCells.h"
#include "items/ProductTreeItemImpl.h"

namespace productTree {

TreeActionResult RoughSignHeaderImpl::OnValueEdited() {
    const std::optional<int> place = FindChosenPlace();
    return place ? ApplyValueToSelection(PropValue(SimplePropVal(*place))) : TreeActionResult();
}

TreeActionResult RoughValueHeaderImpl::OnPopupCommand(int command) {
    if (command != commands::editRoughSign)
        return {};
    for (const TreeRowPtr& row : m_model->GetSelectedRows()) {
        const ProductTreeItemImpl* const item = FindItemOfRow(*row);
        ProductTreeCellImpl* const cell = item ? item->FindCell(GetColumnId()) : nullptr;
        if (cell && cell->IsEditable())
            return cell->OnPopupCommand(command);
    }
    return {};
}

boost::intrusive_ptr<IMenuItems> RoughValueHeaderImpl::GetPopupMenu() {
    static constexpr int entries[] = {commands::editRoughSign};
    return MakeCommandMenu(entries);
}

TreeActionResult NotSectedHeaderImpl::OnValueEdited() {
    const std::optional<int> place = FindChosenPlace();
    return place ? ApplyValueToSelection(PropValue(SimplePropVal(notSected::FromPlace(*place))))
                 : TreeActionResult();
}

} // namespace productTree
