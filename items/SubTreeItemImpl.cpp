#include "items/SubTreeItemImpl.h"

#include "columns/PropertyKeys.h"
#include "host/FormatLabelUtils.h"
#include "host/data/IfProductTreeData.h"
#include "items/CellTable.h"
#include "items/ItemIcons.h"

#include <optional>
#include <utility>

namespace productTree {

void SubTreeItemImpl::SplitByHypertext(std::vector<UniqueMetaObjectKey>& with,
                                       std::vector<UniqueMetaObjectKey>& without,
                                       const std::wstring& columnId) const {
    ForEachChildItem([&](const ProductTreeItemImpl& child) {
        child.SplitByHypertext(with, without, columnId);
        return true;
    });
}

bool SubTreeItemImpl::UpdateActual() {
    m_actual = ForEachChildItem([](const ProductTreeItemImpl& child) { return child.IsActual(); });
    return m_actual;
}

std::wstring SubTreeItemImpl::GetCountSuffix(int withBillets) const {
    return L"(x" + std::to_wstring(GetCount(withBillets)) + L")";
}

unsigned SubTreeItemImpl::GetCount(int withBillets) const {
    unsigned count = 0;
    ForEachChildItem([&](const ProductTreeItemImpl& child) {
        count += child.GetCount(withBillets);
        return true;
    });
    return count;
}

SectionItemImpl::SectionItemImpl(TreeRowPtr row, IfProductTreeData* data, SPCSection section,
                                 SharedText label)
    : SubTreeItemImpl(std::move(row), data), m_section(std::move(section)),
      m_label(std::move(label)) {}

bool SectionItemImpl::IsGroup() const {
    return false;
}

std::shared_ptr<ProductTreeItemId> SectionItemImpl::GetId() const {
    return std::make_shared<SectionItemId>(m_section);
}

std::set<int> SectionItemImpl::GetLockedMarkingParts() const {
    return {};
}

void SectionItemImpl::UpdateRow() {
    SubTreeItemImpl::UpdateRow();
    m_row->SetSectionRowStyle(true);
    // Billets are left out here; the group rows below count them.
    const SharedText raw = m_label.Str() + L' ' + GetCountSuffix(0);
    const SharedText shown =
        format_label_utils::RemoveNewLineSymbols(format_label_utils::FormatLabelForDisplay(raw));
    m_row->SetName(raw, shown, keys::name);
    m_row->SetNameHypertext(false);
    m_row->SetSectionNameStyle(true);
    // The row may have shown an object before: what its cells have left goes.
    m_row->SetNameEditable(false);
    m_row->SetNameIcon({});
    SetMarkingToRow({});
    if (const auto editor = m_row->GetMarkingEditor()) {
        editor->SetReadOnly(true);
        editor->SetHypertext(false);
        editor->SetColumn(keys::marking);
    }
}

void SectionItemImpl::UpdateIcon() {
    const int icon =
        m_data->UsesSectionIcons() ? GetSectionIcon(m_section.numbers[0]) : c_commonIcon;
    m_row->SetIcon(icon, {});
}

GroupItemImpl::GroupItemImpl(TreeRowPtr row, IfProductTreeData* data, UniqueMetaObjectKey key)
    : SubTreeItemImpl(std::move(row), data), m_key(std::move(key)) {}

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

std::set<int> GroupItemImpl::GetLockedMarkingParts() const {
    std::set<int> locked;
    ForEachChildItem([&](const ProductTreeItemImpl& child) {
        locked.merge(child.GetLockedMarkingParts());
        return true;
    });
    return locked;
}

void GroupItemImpl::UpdateIcon() {
    std::optional<int> common;
    bool differs = false;
    const std::size_t count = m_row->GetChildCount();
    for (std::size_t i = 0; i < count && !differs; ++i) {
        const int icon = GetMemberIcon(m_row->GetChild(i)->GetIcon());
        differs = common.value_or(icon) != icon;
        common = icon;
    }
    if (common)
        m_row->SetIcon(differs ? c_commonIcon : GetGroupIcon(*common), {});
}

std::shared_ptr<ProductTreeCellImpl> GroupItemImpl::CreateCell(const ColumnInfo& column) {
    return CreateGroupCell(column, {GetArena(), m_data, m_row, m_key});
}

} // namespace productTree
