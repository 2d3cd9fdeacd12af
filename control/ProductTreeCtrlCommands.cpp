// The commands of the panel as a whole, and those of several rows.

#include "cells/CellCommands.h"
#include "columns/PropertyKeys.h"
#include "control/EditFrame.h"
#include "control/GrProductTreeWrapper.h"
#include "host/data/IfProductTreeData.h"
#include "host/frame/GuiApp.h"
#include "items/DeleteQuestion.h"
#include "items/ProductTreeItemImpl.h"
#include "items/RowIdIndex.h"

#include <algorithm>
#include <iterator>

namespace productTree {

// A command without question is left as the host has it.
struct ProductTreeCtrl::Command {
    using Question = bool (ProductTreeCtrl::*)() const;

    PanelCommand id;
    Question isEnabled;
    Question isShown;
    void (ProductTreeCtrl::*run)();
};

// clang-format off
const ProductTreeCtrl::Command ProductTreeCtrl::s_commands[] = {
    {PanelCommandAddObject,          &ProductTreeCtrl::CanAddObject,         nullptr,                           &ProductTreeCtrl::AddObject},
    {PanelCommandDelete,             &ProductTreeCtrl::CanDeleteSelected,    nullptr,                           &ProductTreeCtrl::DeleteSelected},
    {PanelCommandUpdateAll,          nullptr,                                &ProductTreeCtrl::HasOutdatedRows, &ProductTreeCtrl::UpdateAll},
    {PanelCommandShowDocument,       nullptr,                                nullptr,                           &ProductTreeCtrl::ShowDocument},
    {PanelCommandCalculatePositions, nullptr,                                &ProductTreeCtrl::CanCalculate,    &ProductTreeCtrl::CalculatePositions},
    {PanelCommandHighlight,          &ProductTreeCtrl::CanHighlightSelected, nullptr,                           &ProductTreeCtrl::Highlight},
    {PanelCommandHost,               &ProductTreeCtrl::IsAlways,             nullptr,                           &ProductTreeCtrl::RunHostCommand},
};
// clang-format on

void ProductTreeCtrl::OnToolbarCommand(int command, std::int64_t /*data*/) {
    const auto found = std::ranges::find(s_commands, command, &Command::id);
    if (found != std::end(s_commands) && m_data && m_tree)
        (this->*found->run)();
}

void ProductTreeCtrl::UpdateCommandStates() {
    for (const Command& command : s_commands) {
        const auto id = static_cast<unsigned>(command.id);
        if (command.isEnabled)
            m_tree->EnableCommand(id, (this->*command.isEnabled)());
        if (command.isShown)
            m_tree->ShowCommand(id, (this->*command.isShown)());
    }
    m_tree->EnableEmbodimentSwitch(m_tree->IsEmbodimentsAllowed() && m_data->HasEmbodiments());
    m_tree->SetEmbodimentSwitch(m_data->IsEmbodimentMode());
}

bool ProductTreeCtrl::IsAlways() const {
    return true;
}

bool ProductTreeCtrl::CanAddObject() const {
    return m_data->CanAddObject();
}

bool ProductTreeCtrl::CanDeleteSelected() const {
    return std::ranges::any_of(m_tree->GetSelectedRows(), [](const TreeRowPtr& row) {
        const ProductTreeItemImpl* const item = FindItemOfRow(*row);
        return item && item->CanDelete();
    });
}

bool ProductTreeCtrl::CanHighlightSelected() const {
    const Rows rows = m_tree->GetSelectedRows();
    const ProductTreeItemImpl* const item =
        rows.size() == 1 ? FindItemOfRow(*rows.front()) : nullptr;
    return item && item->CanHighlight();
}

bool ProductTreeCtrl::HasOutdatedRows() const {
    const ITreeTableRow* const root = m_tree->GetRootRow(0);
    if (!root)
        return false;
    const auto isActual = [](const ITreeTableRow& row) {
        const ProductTreeItemImpl* const item = FindItemOfRow(row);
        return !item || item->IsActual();
    };
    return !isActual(*root) || !ForEachChildRow(*root, isActual);
}

bool ProductTreeCtrl::CanCalculate() const {
    if (!m_data->CanCalculatePositions())
        return false;
    const std::vector<std::wstring> columns = m_tree->GetColumnIds();
    if (std::ranges::find(columns, keys::position) == columns.end())
        return false;
    const ITreeTableRow* const root = m_tree->GetRootRow(0);
    const ProductTreeItemImpl* const item = root ? FindItemOfRow(*root) : nullptr;
    return item && (item->CanSetPosition() || item->CanClearPosition());
}

void ProductTreeCtrl::AddObject() {
    RunEdit([this] {
        TreeActionResult result;
        result.selectKey = m_data->AddObject();
        if (result.selectKey.IsEmpty())
            return result;
        result.action = TreeActionResult::Synchronise;
        result.selectFlag = !m_data->IsSectionNameLinked(result.selectKey);
        return result;
    });
}

void ProductTreeCtrl::DeleteSelected() {
    DeleteRows(m_tree->GetSelectedRows());
}

// Each kind of row has its own question; several rows are asked about together.
void ProductTreeCtrl::DeleteRows(const Rows& rows) {
    if (rows.empty())
        return;
    bool isDeleted = false;
    {
        const SyncGuard guard(*this, m_wrapper);
        if (rows.size() > 1) {
            isDeleted = AskAndDeleteRows(rows);
        } else if (const auto item = HoldItemOfRow(*rows.front())) {
            isDeleted = item->Delete();
        }
    }
    if (isDeleted)
        Synchronize();
}

bool ProductTreeCtrl::AskAndDeleteRows(const Rows& rows) {
    std::set<UniqueMetaObjectKey> keys;
    for (const TreeRowPtr& row : rows) {
        if (const ProductTreeItemImpl* const item = FindItemOfRow(*row))
            item->CollectKeysToDelete(keys);
    }
    const DeleteInfo info = m_data->GetDeleteInfo(keys);
    SharedText text;
    if (info.count.value_or(0) != 1)
        text = FormatResourceText(
            "IDS_PRODUCTTREE_MULTISEL_DEL_CONFIRMATION",
            {info.count ? SharedText(std::to_wstring(*info.count)) : SharedText()});
    else if (info.name)
        text = FormatResourceText("IDS_PRODUCTTREE_DELETE_CONFIRMATION", {*info.name});
    return AskAndDelete(*m_data, keys, "IDS_PRODUCTTREE_DEL_OBJECTS", text);
}

void ProductTreeCtrl::UpdateAll() {
    RunEdit([this] {
        m_data->UpdateAll();
        TreeActionResult result;
        result.action = TreeActionResult::ValuesChanged;
        return result;
    });
}

void ProductTreeCtrl::ShowDocument() {
    if (IItApplication* const application = GetItApplicationObject())
        application->ShowDocument(m_data->GetDocumentId(), true);
}

void ProductTreeCtrl::RunHostCommand() {
    if (m_data->RunPanelCommand())
        Synchronize();
}

// The selection is dropped, so that what is highlighted is seen alone, and comes back at its end.
void ProductTreeCtrl::Highlight() {
    const Rows rows = m_tree->GetSelectedRows();
    const auto item = rows.size() == 1 ? HoldItemOfRow(*rows.front()) : nullptr;
    const UniqueMetaObjectKey key = item ? item->GetObjectKey() : UniqueMetaObjectKey();
    if (key.IsEmpty())
        return;
    const SyncGuard guard(*this, m_wrapper);
    m_highlightDone = std::make_shared<std::function<void()>>([this, key] {
        const TreeRowPtr row = FindRowByKey(m_tree->GetRootRow(0), key);
        if (!row)
            return;
        m_tree->SelectRow(row, true, true);
        OnSelectionChanged();
    });
    m_data->Highlight(key, rows.front()->GetNameDisplay(), m_highlightDone);
    m_tree->ClearSelection();
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

void ProductTreeCtrl::TransmitToSource(const Rows& rows) {
    std::vector<std::pair<UniqueMetaObjectKey, PropValue>> values;
    for (const TreeRowPtr& row : rows) {
        if (const ProductTreeItemImpl* const item = FindItemOfRow(*row))
            std::ranges::move(item->GetValuesToTransmit(m_menuColumn), std::back_inserter(values));
    }
    RunEdit([&] {
        m_data->TransmitToSource(m_menuColumn, values);
        TreeActionResult result;
        result.action = TreeActionResult::Synchronise;
        return result;
    });
}

void ProductTreeCtrl::SetBySource(const Rows& rows, bool selectLast) {
    RunEdit([&] {
        ChangedRows changed;
        ProductInfObjChangesResult changes;
        for (const TreeRowPtr& row : rows) {
            const ProductTreeItemImpl* const item = FindItemOfRow(*row);
            if (!item || changed.Contains(*item->GetId()) || !item->CanSetBySource(m_menuColumn))
                continue;
            if (ProductTreeCellImpl* const cell = item->FindCell(m_menuColumn))
                MergeChanges(changes, cell->SetBySource(true, changed));
        }
        m_data->CommitChanges(changes);
        TreeActionResult result;
        result.action = TreeActionResult::Synchronise;
        if (const ProductTreeItemImpl* const last =
                selectLast && !rows.empty() ? FindItemOfRow(*rows.back()) : nullptr)
            result.item = last->GetId();
        return result;
    });
}

// A row below another one of them has been changed with it.
template <class Attribute>
void ProductTreeCtrl::SetRowsAttribute(bool state) {
    RunEdit([&] {
        ChangedRows changed;
        ProductInfObjChangesResult changes;
        for (const TreeRowPtr& row : m_menuRows) {
            const ProductTreeItemImpl* const item = FindItemOfRow(*row);
            if (!item || changed.Contains(*item->GetId()))
                continue;
            Attribute* const attribute = Attribute::FindOf(*item);
            if (attribute && attribute->CanGoTo(state))
                MergeChanges(changes, attribute->MakeChanges(state, changed));
        }
        TreeActionResult result;
        if (changes.IsExistsChanges()) {
            m_data->CommitChanges(changes);
            result.action = TreeActionResult::Synchronise;
        }
        return result;
    });
}

template void ProductTreeCtrl::SetRowsAttribute<AggrIntoProductAttribute>(bool state);
template void ProductTreeCtrl::SetRowsAttribute<RegWithDescAttribute>(bool state);

void ProductTreeCtrl::ManageProperties() {
    m_data->ManageProperties();
}

} // namespace productTree
