#include "platform/view/TreeTableHub.h"

#include "platform/view/TreeTableRow.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

/// Nearly all calls ask for one of the first names, which are quicker looked at than hashed.
constexpr std::size_t c_scannedNames = 12;

} // namespace

TreeTableHub::TreeTableHub() : m_names(1) {}

void TreeTableHub::EndUpdate() {
    if (m_updateDepth == 0 || --m_updateDepth > 0)
        return;
    if (std::exchange(m_isRowChangeAnnounced, false) && m_observer)
        m_observer->OnRowsChanged();
    Announce();
}

void TreeTableHub::AnnounceRowChange() {
    if (std::exchange(m_isRowChangeAnnounced, true))
        return;
    m_changes.rows = true;
    if (m_observer)
        m_observer->OnRowsAboutToChange();
}

void TreeTableHub::Note(bool TreeTableChanges::*what) {
    if (m_isQuiet)
        return;
    m_changes.*what = true;
    Announce();
}

void TreeTableHub::Announce() {
    if (m_updateDepth > 0 || m_isPendingAnnounced || !m_observer || !m_changes.HasAny())
        return;
    m_isPendingAnnounced = true;
    m_observer->OnChangesPending();
}

TreeTableChanges TreeTableHub::TakeChanges() {
    m_isPendingAnnounced = false;
    return std::exchange(m_changes, {});
}

bool TreeTableHub::IsInTree(const TreeTableRow& row) const {
    const TreeTableRow* top = &row;
    while (const TreeTableRow* parent = top->GetParentRow())
        top = parent;
    return top == m_root;
}

void TreeTableHub::Select(TreeTableRow& row, bool select) {
    if (row.IsSelected() == select)
        return;
    if (select) {
        row.m_selectionSlot = static_cast<std::uint32_t>(m_selected.size());
        m_selected.push_back(&row);
    } else {
        TreeTableRow* const last = m_selected.back();
        m_selected[row.m_selectionSlot] = last;
        last->m_selectionSlot = row.m_selectionSlot;
        m_selected.pop_back();
        row.m_selectionSlot = TreeTableRow::c_noSlot;
    }
    Note(&TreeTableChanges::selection);
}

void TreeTableHub::ClearSelection() {
    if (m_selected.empty())
        return;
    for (TreeTableRow* row : m_selected)
        row->m_selectionSlot = TreeTableRow::c_noSlot;
    m_selected.clear();
    Note(&TreeTableChanges::selection);
}

void TreeTableHub::SetCurrent(TreeTableRow* row) {
    if (m_current == row)
        return;
    m_current = row;
    Note(&TreeTableChanges::selection);
}

void TreeTableHub::DropDetachedMarks() {
    if (m_current && !IsInTree(*m_current))
        SetCurrent(nullptr);
    for (std::size_t i = m_selected.size(); i-- > 0;) {
        if (!IsInTree(*m_selected[i]))
            Select(*m_selected[i], false);
    }
}

void TreeTableHub::Forget(TreeTableRow& row) {
    Select(row, false);
    if (m_current == &row)
        SetCurrent(nullptr);
    if (m_root == &row)
        m_root = nullptr;
}

NameId TreeTableHub::IdOf(const SharedText& name) {
    const std::size_t scanned = std::min(m_names.size(), c_scannedNames);
    for (std::size_t i = 0; i < scanned; ++i) {
        if (m_names[i].IsSame(name))
            return static_cast<NameId>(i);
    }
    const auto [found, isNew] = m_ids.try_emplace(name.Str(), static_cast<NameId>(m_names.size()));
    if (isNew)
        m_names.push_back(name);
    return found->second;
}

NameId TreeTableHub::IdOf(const std::wstring& name) {
    const std::size_t scanned = std::min(m_names.size(), c_scannedNames);
    for (std::size_t i = 0; i < scanned; ++i) {
        if (m_names[i].Str() == name)
            return static_cast<NameId>(i);
    }
    return IdOf(SharedText(name));
}

} // namespace platform
