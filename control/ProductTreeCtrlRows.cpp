// The rows of a full build: the sorter's records become items on the rows of the view, which are
// used again by position so that the view keeps its row objects.

#include "cells/CellArena.h"
#include "columns/PropertyKeys.h"
#include "control/Bracket.h"
#include "control/ProductTreeCtrl.h"
#include "host/data/IfProductTreeData.h"
#include "items/BilletItemImpl.h"
#include "items/GroupItemImpl.h"
#include "items/InfObjectItemImpl.h"
#include "items/ProductTreeItemData.h"
#include "items/SectionItemImpl.h"
#include "sorting/IProductTreeSorter.h"

#include <array>
#include <cstddef>

namespace productTree {

namespace {

using ItemPtr = std::shared_ptr<ProductTreeItemImpl>;
using ItemMaker = ItemPtr (*)(const ProductTreeRowInfo&, const TreeRowPtr&, IfProductTreeData*);

ItemPtr MakeObject(const ProductTreeRowInfo& node, const TreeRowPtr& row, IfProductTreeData* data) {
    return std::make_shared<InfObjectItemImpl>(row, data, node.key);
}

ItemPtr MakeBillet(const ProductTreeRowInfo& node, const TreeRowPtr& row, IfProductTreeData* data) {
    return std::make_shared<BilletItemImpl>(row, data, node.key, node.sourceKey);
}

ItemPtr MakeGroup(const ProductTreeRowInfo& node, const TreeRowPtr& row, IfProductTreeData* data) {
    return std::make_shared<GroupItemImpl>(row, data, node.key);
}

ItemPtr MakeSection(const ProductTreeRowInfo& node, const TreeRowPtr& row,
                    IfProductTreeData* data) {
    return std::make_shared<SectionItemImpl>(row, data, node.section, node.label);
}

// By RowKind.
constexpr std::array<ItemMaker, 5> c_itemMakers = {
    MakeObject, // InfObject
    MakeBillet, // Billet
    MakeGroup,  // Group
    MakeObject, // PlainObject
    MakeSection // Section
};

} // namespace

void ProductTreeCtrl::RebuildRows() {
    const FlagScope rebuilding(m_rebuilding);
    const CellArena::KeptMemory keptMemory;
    m_rowStates.Store(*m_tree, m_rootKey, m_embodimentMode);
    m_rootKey = UniqueMetaObjectKey::null;
    m_rowsByKey.Clear();
    m_tree->ClearSelection();
    std::vector<ProductTreeRowInfo> nodes = m_sorter->Sort();
    const UniqueMetaObjectKey rootKey = m_data->GetRootKey();

    ITreeTableRow& root = MakeRootRow(rootKey);
    std::vector<UniqueMetaObjectKey> keys;
    UpdateChildRows(nodes, root, keys);
    // Cells can have their memory.
    nodes = {};
    m_rowsByKey.Add(rootKey, root);
    m_rowsByKey.Close();
    FindItemOfRow(root)->RebuildCells(
        GetCurrentColumns().GetShownColumns(m_data->IsEmbodimentMode()));
    m_data->ExpectReads(keys);
    UpdateRows(root);
    m_rowStates.Restore(*m_tree, rootKey, m_data->IsEmbodimentMode());
}

ITreeTableRow& ProductTreeCtrl::MakeRootRow(const UniqueMetaObjectKey& rootKey) {
    TreeRowPtr root = m_tree->GetRootRow(0);
    const bool isNew = !root;
    if (isNew)
        root = m_tree->CreateRow();
    GiveItem(*root, std::make_shared<RootItemImpl>(root, m_data.get(), rootKey));
    if (isNew)
        m_tree->SetRootRow(root);
    return *root;
}

void ProductTreeCtrl::UpdateChildRows(const std::vector<ProductTreeRowInfo>& nodes,
                                      ITreeTableRow& parent,
                                      std::vector<UniqueMetaObjectKey>& keys) {
    parent.SetChildCount(nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const bool isNew = i >= parent.GetChildCount();
        const TreeRowPtr row = isNew ? m_tree->CreateRow() : TreeRowPtr(parent.GetChild(i));
        GiveItem(*row, CreateItem(nodes[i], row));
        // A row joins the tree with its item: whoever meets it there finds one.
        if (isNew)
            parent.AppendChild(row);
        UpdateChildRows(nodes[i].children, *row, keys);
        if (!nodes[i].key.IsEmpty()) {
            keys.push_back(nodes[i].key);
            m_rowsByKey.Add(nodes[i].key, *row);
        }
        if (!nodes[i].sourceKey.IsEmpty())
            m_rowsByKey.Add(nodes[i].sourceKey, *row);
    }
}

void ProductTreeCtrl::GiveItem(ITreeTableRow& row, std::shared_ptr<ProductTreeItemImpl> item) {
    if (ProductTreeItemData* data = row.GetData()) {
        data->SetImpl(std::move(item));
        return;
    }
    row.SetData(new ProductTreeItemData(*this, std::move(item)), keys::name, keys::marking);
}

std::shared_ptr<ProductTreeItemImpl> ProductTreeCtrl::CreateItem(const ProductTreeRowInfo& node,
                                                                 const TreeRowPtr& row) const {
    const auto kind = static_cast<std::size_t>(node.kind);
    return kind < c_itemMakers.size() ? c_itemMakers[kind](node, row, m_data.get()) : nullptr;
}

} // namespace productTree
