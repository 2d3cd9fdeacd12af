#include "control/ProductTreeCtrl.h"

#include "columns/headers/ProductTreeHeaderImpl.h"
#include "control/Bracket.h"
#include "control/GrProductTreeWrapper.h"
#include "control/ProductPartDocsList.h"
#include "control/RowUpdates.h"
#include "host/DocumentEvents.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"
#include "resources/ProductTreeResources.h"
#include "sorting/StyleBasedProductTreeSorter.h"

#include <utility>

namespace productTree {

ProductTreeCtrl::ProductTreeCtrl(GrProductTreeWrapper& wrapper) : m_wrapper(wrapper) {
    Connect(document_events::c_router);
    SetHandler(document_events::c_changed, [this](unsigned long wParam, long lParam) {
        if (wParam == document_events::c_structure && lParam == 0)
            Synchronize();
        else
            Refresh();
    });
}

ProductTreeCtrl::~ProductTreeCtrl() = default;

void ProductTreeCtrl::Init(std::shared_ptr<IfProductTreeData> data, ITreeTableModel& tree,
                           IParamSlideBoxModel& slideBox) {
    m_data = std::move(data);
    m_sorter = std::make_unique<StyleBasedProductTreeSorter>(m_data);
    m_tree = &tree;
    m_tree->SetController(*this);
    m_tree->SetCaption(GetResourceText("IDS_PRODUCTTREE_NAME"));
    m_tree->ShowColumnHeads(true);
    m_tree->SetHelpTopic("PRODUCT_TREE_HELP");
    m_tree->SetToolbar("PRODUCT_TREE_TOOLBAR");
    m_tree->SetAdditionalToolbar("PRODUCT_TREE_ADDITIONAL_TOOLBAR");
    m_docsList = std::make_unique<ProductPartDocsList>();
    m_docsList->Init(m_data, slideBox);
    m_embodiments.ApplyStoredText(EmbodimentFilter::ReadEmbodiments(*m_data),
                                  m_data->GetEmbodimentFilter());
    Synchronize();
}

void ProductTreeCtrl::Synchronize() {
    RefreshReadOnlyMode();
    LeaveImpossibleEmbodimentMode();
    if (!m_data || m_guarded || m_rebuilding || IsUnchanged())
        return;
    if (!IsViewVisible()) {
        m_wrapper.GetTreeId()->SetNeedSyncronize(true);
        return;
    }

    m_tree->BeginUpdate();
    RunBracketed(
        [&] {
            m_data->BeginRebuild();
            RebuildColumns();
            RebuildRows();
        },
        [&] { m_tree->EndUpdate(); });
    UpdateCommandStates();
    UpdateAttributeColumns();
    UpdateDocsList();
    UpdateEmbodimentFilter();
    UpdateGroupEdit();
    m_wrapper.GetTreeId()->SetNeedSyncronize(false);
    m_wrapper.GetTreeId()->SetNeedRefresh(false);
    RememberBuild();
}

void ProductTreeCtrl::Refresh() {
    RefreshAfterEdit(nullptr);
}

void ProductTreeCtrl::RefreshAfterEdit(ITreeTableRow* touched) {
    RefreshReadOnlyMode();
    if (!m_data || m_guarded || m_rebuilding)
        return;
    const std::uint64_t stamp = m_data->GetChangeStamp();
    if (m_data->IsReadOnly() && stamp == m_refreshStamp)
        return;
    // A build that is owed reads all values, too.
    if (m_wrapper.GetTreeId()->IsNeedSyncronize()) {
        Synchronize();
        return;
    }
    if (!IsViewVisible()) {
        m_wrapper.GetTreeId()->SetNeedRefresh(true);
        return;
    }
    ITreeTableRow* root = m_tree->GetRootRow(0);
    if (!root)
        return;
    if (!UpdateChangedRows(touched))
        UpdateRows(*root);
    UpdateCommandStates();
    UpdateDocsList();
    UpdateEmbodimentFilter();
    m_wrapper.GetTreeId()->SetNeedRefresh(false);
    m_refreshStamp = stamp;
}

void ProductTreeCtrl::RefreshReadOnlyMode() {
    if (!m_data || !m_tree)
        return;
    const bool isReadOnly = m_data->IsReadOnly();
    m_tree->SetReadOnly(isReadOnly);
    if (m_docsList)
        m_docsList->SetEnabled(!isReadOnly);
}

bool ProductTreeCtrl::IsViewVisible() const {
    return m_tree && m_tree->IsVisible();
}

// Only what can't be changed is ever skipped: the stamp need not know of changes in the making.
bool ProductTreeCtrl::IsUnchanged() const {
    if (!m_data->IsReadOnly() || m_syncStamp != m_data->GetChangeStamp())
        return false;
    const auto columns = m_columns.find(m_columnSetKey);
    return columns != m_columns.end() &&
           columns->second.IsSameColumns(m_data->GetVisiblePropertyIds()) &&
           m_embodimentMode == m_data->IsEmbodimentMode();
}

void ProductTreeCtrl::LeaveImpossibleEmbodimentMode() {
    if (!m_data || !m_tree || !m_data->IsEmbodimentMode())
        return;
    if (!m_tree->IsEmbodimentsAllowed() || !m_data->HasEmbodiments())
        m_data->SetEmbodimentMode(false);
}

void ProductTreeCtrl::RememberBuild() {
    m_refreshStamp = m_syncStamp = m_data->GetChangeStamp();
    m_columnSetKey = m_data->GetColumnSetKey();
    m_rootKey = m_data->GetRootKey();
    m_embodimentMode = m_data->IsEmbodimentMode();
}

void ProductTreeCtrl::UpdateRows(ITreeTableRow& root) {
    ProductTreeItemImpl* item = FindItemOfRow(root);
    if (!item)
        return;
    // What changes during the walk may have been read before.
    const std::uint64_t stamp = m_data->GetChangeStamp();
    m_readStamp.reset();
    m_data->BeginRead();
    RunBracketed([&] { item->UpdateRow(); }, [&] { m_data->EndRead(); });
    m_readStamp = stamp;
}

bool ProductTreeCtrl::UpdateChangedRows(ITreeTableRow* touched) {
    if (!m_readStamp || !m_rowsByKey.IsClosed())
        return false;
    const std::uint64_t stamp = m_data->GetChangeStamp();
    const ChangedObjects changed = m_data->GetChangedObjects(*m_readStamp);
    // All rows in their order are read faster than most of them in any.
    if (!changed.isKnown || changed.keys.size() > m_rowsByKey.GetSize() / 2)
        return false;
    RowUpdates updates;
    for (const UniqueMetaObjectKey& key : changed.keys)
        m_rowsByKey.ForEach(key, [&](ITreeTableRow& row) { updates.Add(row); });
    if (touched)
        updates.Add(*touched);
    m_data->BeginRead();
    RunBracketed([&] { updates.Run(); }, [&] { m_data->EndRead(); });
    m_readStamp = stamp;
    return true;
}

} // namespace productTree
