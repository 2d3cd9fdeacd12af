#include "items/SectionItemImpl.h"

#include "cells/CellCommands.h"
#include "cells/JoinedText.h"
#include "columns/PropertyKeys.h"
#include "host/FormatLabelUtils.h"
#include "host/data/IfProductTreeData.h"
#include "items/DeleteQuestion.h"
#include "items/ItemIcons.h"

#include <utility>

namespace productTree {

namespace {

constexpr unsigned c_freeNumbers = 2;

} // namespace

SectionItemImpl::SectionItemImpl(TreeRowPtr row, IfProductTreeData* data, SPCSection section,
                                 SharedText label)
    : SubTreeItemImpl(std::move(row), data), m_section(std::move(section)),
      m_label(std::move(label)), m_ownRegAttribute(m_row, data, GetTally()) {
    m_regAttribute = &m_ownRegAttribute;
}

bool SectionItemImpl::IsGroupEditable() const {
    return false;
}

bool SectionItemImpl::IsGroup() const {
    return false;
}

std::shared_ptr<ProductTreeItemId> SectionItemImpl::GetId() const {
    return std::make_shared<SectionItemId>(m_section);
}

bool SectionItemImpl::CanHighlight() const {
    return false;
}

bool SectionItemImpl::Delete() {
    std::set<Key> keys;
    CollectKeysToDelete(keys);
    const std::optional<int> count = m_data->GetDeleteInfo(keys).count;
    const SharedText text =
        FormatResourceText("IDS_PRODUCTTREE_DEL_SECTION_CONFIRMATION",
                           {m_label, count ? SharedText(std::to_wstring(*count)) : SharedText()});
    return AskAndDelete(*m_data, keys, "IDS_PRODUCTTREE_DEL_OBJECTS", text);
}

std::set<int> SectionItemImpl::GetLockedMarkingParts() const {
    return {};
}

unsigned SectionItemImpl::SetPosition(unsigned next, ProductInfObjChangesResult& changes) {
    if (!m_data->IsSectionNumbered(m_section))
        return next;
    const unsigned number = SetChildPositions(next, changes);
    return number > next ? number + c_freeNumbers : number;
}

void SectionItemImpl::AppendKey(std::vector<Key>&) const {}

bool SectionItemImpl::HasKey(const Key&) const {
    return false;
}

UniqueMetaObjectKey SectionItemImpl::GetDocumentKey() const {
    return UniqueMetaObjectKey::null;
}

UniqueMetaObjectKey SectionItemImpl::GetObjectKey() const {
    return UniqueMetaObjectKey::null;
}

bool SectionItemImpl::IsSectionNameLinked() const {
    return false;
}

std::vector<std::pair<UniqueMetaObjectKey, PropValue>>
SectionItemImpl::GetValuesToTransmit(const std::wstring& columnId) const {
    return JoinValuesToTransmit(columnId);
}

bool SectionItemImpl::CanTransmitToSource(const std::wstring& columnId) const {
    return HasChildItem(
        [&](const ProductTreeItemImpl& child) { return child.CanTransmitToSource(columnId); });
}

bool SectionItemImpl::CanSetBySource(const std::wstring&) const {
    return false;
}

void SectionItemImpl::UpdateRowStyle() {
    m_row->SetSectionRowStyle(true);
    const SharedText suffix = MakeCountSuffix(GetTally().GetObjectCount());
    const SharedText raw = JoinTexts(m_row->GetNameValue(), {m_label.Str(), L" ", suffix.Str()});
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
        editor->SetIcon({});
        editor->SetColumn(keys::marking);
    }
}

bool SectionItemImpl::TrackCellContextMenu(const std::wstring&, LEventsHandler* handler) {
    return CanDelete() && ShowItemMenu({commands::removeProductPart}, handler);
}

unsigned SectionItemImpl::CountObjects(const ProductTreeItemImpl& child) const {
    return child.GetCount(0);
}

void SectionItemImpl::UpdateIcon() {
    const int icon =
        m_data->UsesSectionIcons() ? GetSectionIcon(m_section.numbers[0]) : c_commonIcon;
    m_row->SetIcon(icon, {});
}

} // namespace productTree
