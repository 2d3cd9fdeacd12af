#include "columns/headers/CountHeader.h"

#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"
#include "resources/ProductTreeResources.h"

#include <set>

namespace productTree {

void CountHeaderImpl::InitEditor() {
    const std::set<UniqueMetaObjectKey> embodiments =
        ColumnInfo::ConvertGroupCountFromId(m_column.GetId());
    const std::wstring tag = embodiments.empty() ? L"" : L"EMB_COUNT_COLUMN_TAG";
    std::wstring text;
    bool isActive = false;
    if (!embodiments.empty() && m_data->IsEmbodimentMode()) {
        isActive =
            m_data->HasActiveEmbodiment() && *embodiments.begin() == m_data->GetActiveEmbodiment();
        text = GetResourceText("IDS_COUNT_FOR_EMBODIMENT").Str();
        if (!m_column.GetHeader().empty())
            text += L' ' + m_column.GetHeader();
    }
    m_model->InitCountHeader(m_column, text, tag, isActive);
    m_model->AddGroupEditProperty(m_column.GetId(), !m_data->IsEmbodimentMode());
}

TreeActionResult CountHeaderImpl::OnValueEdited() {
    const PropValue value(SimplePropVal(m_model->GetHeaderText(GetColumnId())));
    ProductInfObjChangesResult changes;
    for (const TreeRowPtr& row : m_model->GetSelectedRows()) {
        if (ProductTreeItemImpl* const item = FindItemOfRow(*row))
            MergeChanges(changes, item->MakeCellChanges(GetColumnId(), value, std::nullopt));
    }
    m_data->CommitChanges(changes);
    TreeActionResult result;
    if (changes.IsExistsChanges())
        result.action = TreeActionResult::ValuesChanged;
    return result;
}

} // namespace productTree
