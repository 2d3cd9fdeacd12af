#include "cells/GroupCellImpl.h"

#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

#include <vector>

namespace productTree {

template <class Callback>
void GroupCellImpl::ForEachMember(const Callback& callback) const {
    GetItem().ForEachChildItem([&](ProductTreeItemImpl& child) {
        ProductTreeCellImpl* cell = child.FindCell(m_column.GetId());
        return !cell || callback(*cell);
    });
}

bool GroupCellImpl::IsEditable() {
    if (!m_editable) {
        m_editable = false;
        ForEachMember([&](ProductTreeCellImpl& cell) {
            m_editable = cell.IsEditable();
            return !*m_editable;
        });
    }
    return *m_editable;
}

bool GroupCellImpl::HasHypertext() {
    if (m_hasHypertext)
        return *m_hasHypertext;
    m_hasHypertext = false;
    if (!m_data->IsEmbodimentMode()) {
        std::vector<UniqueMetaObjectKey> with;
        std::vector<UniqueMetaObjectKey> without;
        GetItem().SplitByHypertext(with, without, m_column.GetId());
        m_hasHypertext = without.empty() && m_data->AreHypertext(with, m_column.GetId());
    }
    return *m_hasHypertext;
}

bool GroupCellImpl::IsHypertextActive() {
    if (!m_hypertextActive) {
        m_hypertextActive = true;
        ForEachMember([&](ProductTreeCellImpl& cell) {
            m_hypertextActive = cell.IsHypertextActive();
            return *m_hypertextActive;
        });
    }
    return *m_hypertextActive;
}

} // namespace productTree
