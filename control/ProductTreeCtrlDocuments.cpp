// The list of documents below the tree, which shows those of the one selected row.

#include "control/Bracket.h"
#include "control/EditFrame.h"
#include "control/GrProductTreeWrapper.h"
#include "control/ProductPartDocsList.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

namespace productTree {

// A command may lead the document to another selection.
void ProductTreeCtrl::OnDocsListEvent(int eventId, std::int64_t data) {
    if (!m_docsList)
        return;
    TreeActionResult result;
    {
        const FlagScope inCommand(m_inCommand);
        const SyncGuard guard(*this, m_wrapper);
        result = m_docsList->OnEvent(eventId, data);
    }
    ApplyResult(result);
}

void ProductTreeCtrl::SetDocsListVisible(bool visible) {
    if (m_docsList)
        m_docsList->SetVisible(visible);
}

void ProductTreeCtrl::UpdateDocsList() {
    if (!m_docsList)
        return;
    const Rows selected = m_tree->GetSelectedRows();
    const ProductTreeItemImpl* const item =
        selected.size() == 1 ? FindItemOfRow(*selected.front()) : nullptr;
    m_docsList->SetKey(item ? item->GetDocumentKey() : UniqueMetaObjectKey());
}

} // namespace productTree
