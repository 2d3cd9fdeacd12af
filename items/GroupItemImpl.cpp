#include "items/GroupItemImpl.h"

#include "host/FormatLabelUtils.h"
#include "host/data/IfProductTreeData.h"
#include "items/ColumnTable.h"
#include "items/DeleteQuestion.h"
#include "items/ItemIcons.h"

#include <optional>
#include <utility>

namespace productTree {

GroupItemImpl::GroupItemImpl(TreeRowPtr row, IfProductTreeData* data, UniqueMetaObjectKey key)
    : SubTreeItemImpl(std::move(row), data), m_key(std::move(key)),
      m_ownRegAttribute(m_row, data, GetTally(), m_key) {
    m_regAttribute = &m_ownRegAttribute;
}

bool GroupItemImpl::IsGroupEditable() const {
    return true;
}

bool GroupItemImpl::IsGroup() const {
    return true;
}

std::shared_ptr<ProductTreeItemId> GroupItemImpl::GetId() const {
    std::shared_ptr<ProductTreeItemId> firstChild;
    ForEachChildItem([&](const ProductTreeItemImpl& child) {
        firstChild = child.GetId();
        return false;
    });
    return std::make_shared<GroupItemId>(m_key, std::move(firstChild));
}

bool GroupItemImpl::CanHighlight() const {
    return HasChildItem([](const ProductTreeItemImpl& child) { return child.CanHighlight(); });
}

bool GroupItemImpl::Delete() {
    std::set<Key> keys;
    CollectKeysToDelete(keys);
    return AskAndDelete(*m_data, keys, "IDS_PRODUCTTREE_DEL_OBJECT", MakeDeleteText(keys));
}

SharedText GroupItemImpl::MakeDeleteText(const std::set<Key>& keys) const {
    const DeleteInfo info = m_data->GetDeleteInfo(keys);
    if (!info.count)
        return MakeOwnDeleteText();
    if (*info.count != 1)
        return FormatResourceText("IDS_PRODUCTTREE_MULTISEL_DEL_CONFIRMATION",
                                  {std::to_wstring(*info.count)});
    return info.name ? FormatResourceText("IDS_PRODUCTTREE_DELETE_CONFIRMATION", {*info.name})
                     : SharedText();
}

SharedText GroupItemImpl::MakeOwnDeleteText() const {
    const SharedText name = format_label_utils::FormatLabelForDisplay(m_row->GetNameValue());
    const auto editor = m_row->GetMarkingEditor();
    const SharedText marking = editor ? editor->GetDisplayText() : SharedText();
    const SharedText object =
        marking.IsEmpty() ? name : SharedText(marking.Str() + L' ' + name.Str());
    return FormatResourceText("IDS_PRODUCTTREE_DELETE_CONFIRMATION", {object});
}

void GroupItemImpl::CollectSelectionKeys(std::vector<Key>& keys) const {
    keys.push_back(m_key);
}

std::set<int> GroupItemImpl::GetLockedMarkingParts() const {
    std::set<int> locked;
    ForEachChildItem([&](const ProductTreeItemImpl& child) {
        locked.merge(child.GetLockedMarkingParts());
        return true;
    });
    return locked;
}

unsigned GroupItemImpl::SetPosition(unsigned next, ProductInfObjChangesResult& changes) {
    unsigned number = next;
    ForEachChildItem([&](ProductTreeItemImpl& child) {
        const unsigned answer = child.SetPosition(next, changes);
        if (answer > next)
            number = answer;
        return true;
    });
    return number;
}

void GroupItemImpl::AppendKey(std::vector<Key>& keys) const {
    ForEachChildItem([&](const ProductTreeItemImpl& child) {
        child.AppendKey(keys);
        return true;
    });
}

bool GroupItemImpl::HasKey(const Key& key) const {
    return m_key == key;
}

UniqueMetaObjectKey GroupItemImpl::GetDocumentKey() const {
    return m_key;
}

UniqueMetaObjectKey GroupItemImpl::GetObjectKey() const {
    return m_key;
}

bool GroupItemImpl::IsSectionNameLinked() const {
    return ForEachChildItem(
        [](const ProductTreeItemImpl& child) { return child.IsSectionNameLinked(); });
}

std::vector<std::pair<UniqueMetaObjectKey, PropValue>>
GroupItemImpl::GetValuesToTransmit(const std::wstring& columnId) const {
    const ProductTreeCellImpl* const cell = FindCell(columnId);
    if (!cell)
        return {};
    auto values = JoinValuesToTransmit(columnId);
    for (auto& [key, value] : values)
        value = cell->GetShownPropValue();
    return values;
}

bool GroupItemImpl::CanTransmitToSource(const std::wstring& columnId) const {
    ProductTreeCellImpl* const cell = FindCell(columnId);
    return cell && cell->CanTransmitToSource();
}

void GroupItemImpl::UpdateIcon() {
    std::optional<int> common;
    bool differs = false;
    ForEachChildRow(*m_row, [&](const ITreeTableRow& child) {
        const int icon = GetMemberIcon(child.GetIcon());
        differs = common.value_or(icon) != icon;
        common = icon;
        return !differs;
    });
    if (common)
        m_row->SetIcon(differs ? c_commonIcon : GetGroupIcon(*common), {});
}

std::shared_ptr<ProductTreeCellImpl> GroupItemImpl::CreateCell(const ColumnInfo& column) {
    return CreateGroupCell(column, {m_cells, m_data, m_row, m_key});
}

} // namespace productTree
