#include "platform/view/TreeTableHub.h"

#include "platform/view/TreeTableRow.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

std::size_t Depth(const TreeTableRow& row) {
    std::size_t depth = 0;
    for (const TreeTableRow* up = row.GetParentRow(); up; up = up->GetParentRow())
        ++depth;
    return depth;
}

/// The order from top to bottom: a row stands before the rows below it.
bool StandsAbove(const TreeTableRow* a, const TreeTableRow* b) {
    const std::size_t depthA = Depth(*a);
    const std::size_t depthB = Depth(*b);
    for (std::size_t depth = depthA; depth > depthB; --depth)
        a = a->GetParentRow();
    for (std::size_t depth = depthB; depth > depthA; --depth)
        b = b->GetParentRow();
    if (a == b)
        return depthA < depthB;
    while (a->GetParentRow() != b->GetParentRow()) {
        a = a->GetParentRow();
        b = b->GetParentRow();
    }
    return a->GetIndex() < b->GetIndex();
}

} // namespace

void TreeTableHub::BeginUpdate() {
    if (m_updateDepth++ == 0)
        ++m_epoch;
}

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

void TreeTableHub::NoteRow(TreeTableRow& row) {
    if (m_isQuiet)
        return;
    if (!m_areAllValuesChanged && !row.IsInChanges()) {
        if (m_changes.valueRows.size() < TreeTableChanges::c_maxValueRows) {
            m_changes.valueRows.push_back(&row);
            row.SetInChanges(true);
        } else {
            m_areAllValuesChanged = true;
        }
    }
    m_changes.values = true;
    Announce();
}

void TreeTableHub::RequestEdit(TreeTableRow& row) {
    m_changes.editRow = &row;
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
    TreeTableChanges changes = std::exchange(m_changes, {});
    for (TreeTableRow* row : changes.valueRows)
        row->SetInChanges(false);
    if (std::exchange(m_areAllValuesChanged, false)) {
        changes.valueRows.clear();
    } else {
        std::erase_if(changes.valueRows,
                      [this](const TreeTableRow* row) { return !IsInTree(*row); });
        changes.values = !changes.valueRows.empty();
    }
    if (changes.editRow && !IsInTree(*changes.editRow))
        changes.editRow = nullptr;
    return changes;
}

bool TreeTableHub::IsInTree(const TreeTableRow& row) const {
    const TreeTableRow* top = &row;
    while (const TreeTableRow* parent = top->GetParentRow())
        top = parent;
    return top == m_root;
}

const std::vector<TreeTableRow*>& TreeTableHub::GetSelected() {
    // Asked for again and again between two selections.
    if (!std::ranges::is_sorted(m_selected, StandsAbove)) {
        std::ranges::sort(m_selected, StandsAbove);
        for (std::size_t i = 0; i < m_selected.size(); ++i)
            m_selected[i]->m_selectionPlace = static_cast<std::uint32_t>(i);
    }
    return m_selected;
}

void TreeTableHub::Select(TreeTableRow& row, bool select) {
    if (row.IsSelected() == select)
        return;
    if (select) {
        row.m_selectionPlace = static_cast<std::uint32_t>(m_selected.size());
        m_selected.push_back(&row);
    } else {
        TreeTableRow* const last = m_selected.back();
        m_selected[row.m_selectionPlace] = last;
        last->m_selectionPlace = row.m_selectionPlace;
        m_selected.pop_back();
        row.m_selectionPlace = TreeTableRow::c_noPlace;
    }
    Note(&TreeTableChanges::selection);
}

void TreeTableHub::ClearSelection() {
    if (m_selected.empty())
        return;
    for (TreeTableRow* row : m_selected)
        row->m_selectionPlace = TreeTableRow::c_noPlace;
    m_selected.clear();
    Note(&TreeTableChanges::selection);
}

void TreeTableHub::SelectAlone(TreeTableRow& row) {
    if (m_selected.size() != 1 || m_selected.front() != &row) {
        ClearSelection();
        Select(row, true);
    }
    SetCurrent(&row);
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
    if (m_changes.editRow == &row)
        m_changes.editRow = nullptr;
    if (row.IsInChanges())
        std::erase(m_changes.valueRows, &row);
}

} // namespace platform
