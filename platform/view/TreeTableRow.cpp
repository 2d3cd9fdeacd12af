#include "platform/view/TreeTableRow.h"

#include "items/ProductTreeItemData.h"

#include <iterator>
#include <utility>

namespace platform {

TreeTableRow::TreeTableRow(boost::intrusive_ptr<TreeTableHub> hub)
    : m_hub(std::move(hub)), m_marking(*this) {}

TreeTableRow::~TreeTableRow() {
    // Whoever still holds a child holds a row that stands nowhere.
    for (const auto& child : m_children)
        child->m_parent = nullptr;
    m_hub->Forget(*this);
}

void TreeTableRow::ChangeName(NameId& field, const SharedText& name) {
    if (!(m_hub->NameOf(field) == name))
        Change(field, m_hub->GetNames().IdOf(name));
}

void TreeTableRow::ChangeName(NameId& field, const std::wstring& name) {
    if (m_hub->NameOf(field).Str() != name)
        Change(field, m_hub->GetNames().IdOf(name));
}

void TreeTableRow::PutFlag(Flag flag, bool on) {
    const auto bit = static_cast<std::uint8_t>(1U << static_cast<unsigned>(flag));
    m_flags = static_cast<std::uint8_t>(on ? m_flags | bit : m_flags & ~bit);
}

void TreeTableRow::SetFlag(Flag flag, bool on) {
    if (HasFlag(flag) == on)
        return;
    PutFlag(flag, on);
    m_hub->NoteValues(*this);
}

void TreeTableRow::AppendChild(const TreeRowPtr& child) {
    m_hub->BeginUpdate();
    if (m_hub->IsInTree(*this))
        m_hub->AnnounceRowChange();
    auto& row = static_cast<TreeTableRow&>(*child);
    row.m_parent = this;
    row.m_index = static_cast<std::uint32_t>(m_children.size());
    m_children.emplace_back(&row);
    m_hub->EndUpdate();
}

void TreeTableRow::SetChildCount(std::size_t count) {
    if (count >= m_children.size())
        return;
    m_hub->BeginUpdate();
    if (m_hub->IsInTree(*this))
        m_hub->AnnounceRowChange();
    const auto firstDropped = m_children.begin() + static_cast<std::ptrdiff_t>(count);
    const std::vector dropped(std::make_move_iterator(firstDropped),
                              std::make_move_iterator(m_children.end()));
    m_children.erase(firstDropped, m_children.end());
    for (const auto& child : dropped)
        child->m_parent = nullptr;
    m_hub->DropDetachedMarks();
    for (const auto& child : dropped)
        child->ReleaseData();
    m_hub->EndUpdate();
}

void TreeTableRow::ReleaseData() {
    m_data.reset();
    for (const auto& child : m_children)
        child->ReleaseData();
}

void TreeTableRow::SetData(const boost::intrusive_ptr<productTree::ProductTreeItemData>& data,
                           const std::wstring& nameColumnId, const std::wstring& markingColumnId) {
    m_data = data;
    ChangeName(m_nameColumn, nameColumnId);
    m_marking.SetColumn(markingColumnId);
}

void TreeTableRow::SetExpanded(bool expanded) {
    if (IsExpanded() == expanded)
        return;
    PutFlag(Flag::Expanded, expanded);
    m_hub->Note(&TreeTableChanges::expansion);
}

void TreeTableRow::Select() {
    m_hub->BeginUpdate();
    m_hub->SelectAlone(*this);
    for (TreeTableRow* up = m_parent; up; up = up->m_parent)
        up->SetExpanded(true);
    m_hub->EndUpdate();
    m_hub->TellSelection();
}

void TreeTableRow::SetCurrentCountColumn(const std::wstring& columnId) {
    ChangeName(m_currentCountColumn, columnId);
}

const std::wstring& TreeTableRow::GetCurrentCountColumn() const {
    return m_hub->NameOf(m_currentCountColumn);
}

SharedText TreeTableRow::GetNameText() const {
    const RowInput* const input = m_hub->FindInput(*this, RowInput::Place::Name);
    return input ? std::get<SharedText>(input->value) : m_name;
}

void TreeTableRow::SetName(const SharedText& raw, const SharedText& shown,
                           const std::wstring& columnId) {
    m_hub->AnswerInput(*this, RowInput::Place::Name);
    Change(m_name, raw);
    // Most names are shown as they are: one text then serves both.
    Change(m_shownName, shown == m_name ? m_name : shown);
    ChangeName(m_nameColumn, columnId);
}

void TreeTableRow::SetIcon(int icon, const SharedText& tip) {
    Change(m_icon, icon);
    ChangeName(m_iconTip, tip);
}

} // namespace platform
