// The three context menus: of one row, of several selected rows, of a column. What is chosen
// arrives when the menu has closed, so that the control remembers what it was opened for.

#include "cells/CellCommands.h"
#include "columns/PropertyKeys.h"
#include "control/Bracket.h"
#include "control/EditFrame.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemData.h"
#include "items/ProductTreeItemImpl.h"
#include "items/SimpleCellContextMenu.h"
#include "resources/ProductTreeResources.h"

#include <algorithm>
#include <iterator>

namespace productTree {

namespace {

TResId FindMenu(const char* name) {
    return FindResourceId({name, ResourceKind::Command});
}

// Commands of a single row that may change the document's selection while they run.
bool MovesSelection(int command) {
    constexpr int moving[] = {commands::insertHypertext, commands::editHypertext,
                              commands::gotoFeature, commands::insertExtendedReference,
                              commands::editComponentSource};
    return std::ranges::find(moving, command) != std::end(moving);
}

template <class Attribute>
bool CanGoTo(const ProductTreeItemImpl& item, bool state) {
    const Attribute* const attribute = Attribute::FindOf(item);
    return attribute && attribute->CanGoTo(state);
}

void CollectRows(ITreeTableRow& row, std::vector<TreeRowPtr>& rows) {
    rows.emplace_back(&row);
    ForEachChildRow(row, [&](ITreeTableRow& child) {
        CollectRows(child, rows);
        return true;
    });
}

} // namespace

ProductTreeCtrl::Rows ProductTreeCtrl::GetAllRows() const {
    Rows rows;
    if (ITreeTableRow* const root = m_tree->GetRootRow(0))
        CollectRows(*root, rows);
    return rows;
}

ProductTreeCtrl::Rows ProductTreeCtrl::GetTopRows() const {
    Rows rows;
    if (const ITreeTableRow* const root = m_tree->GetRootRow(0))
        ForEachChildRow(*root, [&](ITreeTableRow& child) {
            rows.emplace_back(&child);
            return true;
        });
    return rows;
}

void ProductTreeCtrl::OnItemContextMenu(ProductTreeItemData& item, const std::wstring& columnId) {
    Rows rows = m_tree->GetSelectedRows();
    MenuKind kind = RowsMenu;
    bool isShown = false;
    if (rows.size() > 1) {
        isShown =
            SimpleCellContextMenu::ShowMenu(FindMenu("IDM_PRODUCT_TREE_MULTISEL_ITEM_CONTEXT_MENU"),
                                            GetRowsMenuCommands(rows, columnId), this);
    } else if (const std::shared_ptr<ProductTreeItemImpl> impl = item.GetImpl()) {
        kind = RowMenu;
        rows = {TreeRowPtr(&impl->GetRow())};
        isShown = impl->TrackCellContextMenu(columnId, this);
    }
    if (!isShown)
        return;
    m_menuRows = std::move(rows);
    m_menuColumn = columnId;
    m_menuKind = kind;
}

// Each is offered as soon as one row answers yes.
std::set<int> ProductTreeCtrl::GetRowsMenuCommands(const Rows& rows,
                                                   const std::wstring& columnId) const {
    const bool hasRegister = m_data->IsRegWithDescShown();
    std::set<int> available;
    for (const TreeRowPtr& row : rows) {
        const ProductTreeItemImpl* const item = FindItemOfRow(*row);
        if (!item)
            continue;
        const std::pair<int, bool> answers[] = {
            {commands::setBySource, item->CanSetBySource(columnId)},
            {commands::aggrIntoProductOn, CanGoTo<AggrIntoProductAttribute>(*item, true)},
            {commands::aggrIntoProductOff, CanGoTo<AggrIntoProductAttribute>(*item, false)},
            {commands::inCurDescrOn, hasRegister && CanGoTo<RegWithDescAttribute>(*item, true)},
            {commands::inCurDescrOff, hasRegister && CanGoTo<RegWithDescAttribute>(*item, false)},
            {commands::transmitToSource, item->CanTransmitToSource(columnId)},
            {commands::removeProductPart, item->CanDelete()},
        };
        for (const auto& [command, isOffered] : answers) {
            if (isOffered)
                available.insert(command);
        }
    }
    return available;
}

void ProductTreeCtrl::OnColumnContextMenu(const std::wstring& columnId) {
    if (!SimpleCellContextMenu::ShowMenu(FindMenu("IDM_PRODUCT_TREE_COLUMN_CONTEXT_MENU"),
                                         GetColumnMenuCommands(columnId), this))
        return;
    m_menuRows.clear();
    m_menuColumn = columnId;
    m_menuKind = ColumnMenu;
}

std::set<int> ProductTreeCtrl::GetColumnMenuCommands(const std::wstring& columnId) const {
    std::set<int> available;
    if (columnId == keys::position && CanCalculate())
        available.insert(commands::calculatePositions);
    for (const TreeRowPtr& row : GetAllRows()) {
        const ProductTreeItemImpl* const item = FindItemOfRow(*row);
        if (!item)
            continue;
        if (!available.contains(commands::transmitToSource) && item->CanTransmitToSource(columnId))
            available.insert(commands::transmitToSource);
        if (!available.contains(commands::setBySource) && item->CanSetBySource(columnId))
            available.insert(commands::setBySource);
    }
    if (columnId != keys::name && columnId != keys::marking) {
        available.insert(commands::manageProperties);
        // The counts of single embodiments stand and go together.
        if (!m_data->IsEmbodimentMode() || ColumnInfo::ConvertGroupCountFromId(columnId).empty())
            available.insert(commands::hideColumn);
    }
    return available;
}

bool ProductTreeCtrl::OnCommand(unsigned command, int code) {
    if (code < 0 || m_menuColumn.empty())
        return false;
    // Whatever comes of it, the menu is done with.
    bool isHandled = false;
    RunBracketed(
        [&] {
            const auto id = static_cast<int>(command);
            if (id == commands::highlight) {
                Highlight();
                isHandled = true;
            } else if (m_menuKind == RowMenu) {
                isHandled = RunRowMenuCommand(id);
            } else {
                isHandled =
                    m_menuKind == RowsMenu ? RunRowsMenuCommand(id) : RunColumnMenuCommand(id);
            }
        },
        [&] {
            m_menuColumn.clear();
            m_menuRows.clear();
        });
    return isHandled;
}

bool ProductTreeCtrl::RunRowMenuCommand(int command) {
    if (m_menuRows.size() != 1)
        return false;
    if (command == commands::removeProductPart) {
        DeleteRows(m_menuRows);
        return true;
    }
    const std::shared_ptr<ProductTreeItemImpl> item = HoldItemOfRow(*m_menuRows.front());
    bool isHandled = false;
    TreeActionResult result;
    {
        const SyncGuard guard(*this, m_wrapper);
        bool noFlag = false;
        const FlagScope inCommand(MovesSelection(command) ? m_inCommand : noFlag);
        isHandled = item && item->ExecCellCommand(m_menuColumn, command, result);
    }
    ApplyResult(result);
    return isHandled;
}

bool ProductTreeCtrl::RunRowsMenuCommand(int command) {
    switch (command) {
    case commands::removeProductPart:
        DeleteRows(m_menuRows);
        return true;
    case commands::transmitToSource:
        if (!m_menuRows.empty())
            TransmitToSource(m_menuRows);
        return true;
    case commands::setBySource:
        SetBySource(m_menuRows, true);
        return true;
    case commands::aggrIntoProductOn:
    case commands::aggrIntoProductOff:
        SetRowsAttribute<AggrIntoProductAttribute>(command == commands::aggrIntoProductOn);
        return true;
    case commands::inCurDescrOn:
    case commands::inCurDescrOff:
        if (m_data->IsRegWithDescShown())
            SetRowsAttribute<RegWithDescAttribute>(command == commands::inCurDescrOn);
        return true;
    default:
        return false;
    }
}

bool ProductTreeCtrl::RunColumnMenuCommand(int command) {
    switch (command) {
    case commands::transmitToSource:
        TransmitToSource(GetTopRows());
        return true;
    case commands::calculatePositions:
        CalculatePositions();
        return true;
    case commands::setBySource:
        SetBySource(GetAllRows(), false);
        return true;
    case commands::hideColumn:
        HideMenuColumn();
        return true;
    case commands::manageProperties:
        ManageProperties();
        return true;
    default:
        return false;
    }
}

void ProductTreeCtrl::HideMenuColumn() {
    RunEdit([this] {
        m_data->SetColumnVisible(m_menuColumn, false);
        TreeActionResult result;
        result.action = TreeActionResult::Synchronise;
        return result;
    });
}

} // namespace productTree
