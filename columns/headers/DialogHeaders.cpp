#include "columns/headers/DialogHeaders.h"

#include "cells/CellMenus.h"
#include "cells/MaterialCells.h"
#include "host/SPCSection.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

#include <array>
#include <set>

namespace productTree {

namespace {

bool HasNumbers(const SPCSection& section) {
    SPCSection numbers = section;
    numbers.name = {};
    return !(numbers == SPCSection());
}

SPCSection ReadSection(const PropValue& value) {
    SPCSection section;
    spc_section::FromPropertyTree(section, value.GetPropertyTree());
    return section;
}

} // namespace

void MIPHeaderImpl::InitEditor() {
    m_model->InitLinkHeader(m_column);
}

TreeActionResult MIPHeaderImpl::OnValueEdited() {
    return {};
}

TreeActionResult MIPHeaderImpl::OnClicked() {
    std::vector<UniqueMetaObjectKey> keys;
    ForEachRowToApply([&](const ProductTreeItemImpl& item, ProductTreeCellImpl& cell) {
        if (cell.IsEditable())
            item.AppendKey(keys);
        return true;
    });
    return EditMipOf(*m_data, keys, MipSource::Link, TreeActionResult::Synchronise);
}

boost::intrusive_ptr<IMenuItems> SimplifiedMaterialHeaderImpl::GetPopupMenu() {
    if (!m_menu)
        m_menu = MakeCommandMenu(GetMaterialCommands());
    return m_menu;
}

TreeActionResult SimplifiedMaterialHeaderImpl::OnPopupCommand(int command) {
    return ExecMaterialCommand(*m_data, GatherKeys(), command);
}

std::vector<UniqueMetaObjectKey> SimplifiedMaterialHeaderImpl::GatherKeys() const {
    std::set<UniqueMetaObjectKey> keys;
    for (const TreeRowPtr& row : m_model->GetSelectedRows()) {
        const ProductTreeItemImpl* const item = FindItemOfRow(*row);
        if (!item)
            continue;
        if (item->IsGroup()) {
            std::vector<UniqueMetaObjectKey> members;
            item->AppendKey(members);
            keys.insert(members.begin(), members.end());
        } else if (const ProductTreeCellImpl* const cell = item->FindCell(GetColumnId())) {
            keys.insert(cell->GetKey());
        }
    }
    return {keys.begin(), keys.end()};
}

/// The section of the selected rows: empty where they differ.
struct SpcSectionHeaderImpl::Shared {
    PropValue value;
    bool isNameLinked = false;
    /// All rows that were read agree on whether their names follow the section.
    bool allAgree = false;
};

SpcSectionHeaderImpl::Shared SpcSectionHeaderImpl::FindShared() const {
    Shared shared;
    SPCSection section;
    ForEachRowToApply([&](const ProductTreeItemImpl& item, const ProductTreeCellImpl& cell) {
        const PropValue value = cell.GetShownPropValue();
        const bool isLinked = item.IsSectionNameLinked();
        // A section without numbers is none yet.
        if (!HasNumbers(section)) {
            section = ReadSection(value);
            shared = {value, isLinked, true};
            return true;
        }
        if (!(ReadSection(value) == section)) {
            shared.value = {};
            return false;
        }
        shared.allAgree = shared.allAgree && isLinked == shared.isNameLinked;
        return true;
    });
    return shared;
}

void SpcSectionHeaderImpl::InitEditor() {
    m_model->InitLinkHeader(m_column);
}

TreeActionResult SpcSectionHeaderImpl::OnValueEdited() {
    return {};
}

TreeActionResult SpcSectionHeaderImpl::OnClicked() {
    const Shared shared = FindShared();
    const SectionChoice choice = m_data->EditSection(PropValueRef(shared.value.GetPropData()),
                                                     shared.isNameLinked && shared.allAgree);
    if (!choice.ok)
        return {};
    std::shared_ptr<ProductTreeItemId> last;
    ProductInfObjChangesResult changes;
    ForEachRowToApply([&](const ProductTreeItemImpl& item, ProductTreeCellImpl& cell) {
        last = item.GetId();
        MergeChanges(changes, cell.MakeChanges(choice.value, choice.nameLinked ? 1 : 0));
        return true;
    });
    m_data->CommitChanges(changes);
    TreeActionResult result;
    if (!changes.IsExistsChanges())
        return result;
    result.action = m_data->IsSortedBySection() ? TreeActionResult::Synchronise
                                                : TreeActionResult::ValuesChanged;
    result.item = std::move(last);
    return result;
}

} // namespace productTree
