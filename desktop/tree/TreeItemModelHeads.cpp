// What a user does in the heads of columns for all selected rows.
#include "desktop/tree/InputWatch.h"
#include "desktop/tree/TreeItemModel.h"
#include "desktop/tree/UserInputs.h"

#include <algorithm>

namespace desktop {

using platform::ColumnHead;
using platform::HeadKind;
using platform::TreeTableRow;

QModelIndexList TreeItemModel::SelectedCells(int column) const {
    QModelIndexList cells;
    for (const TreeRowPtr& row : m_view.GetSelectedRows())
        cells += IndexOf(static_cast<const TreeTableRow&>(*row), column);
    return cells;
}

bool TreeItemModel::EditHead(int column, const QVariant& value) {
    const EditKind kind = GetHeadEditor(column).kind;
    // Copied, since the heads may go with the rows.
    const ColumnHead head = m_heads[static_cast<std::size_t>(column)];
    const QModelIndexList cells = SelectedCells(column);
    const InputWatch watch(cells);
    bool isAsked = false;
    if (kind == EditKind::Designation)
        isAsked = m_view.EditMarkingHeadByUser(ToHeaderParts(value.toStringList()));
    else if (kind != EditKind::None)
        isAsked = m_view.EditHeadByUser(head.id, ToInput(kind, value));
    emit InputAnswered(head, value, isAsked && watch.IsTaken(value));
    emit HeadAnswered(head, watch.CountTakers(value), static_cast<int>(cells.size()));
    return isAsked;
}

bool TreeItemModel::ClickHead(int column) {
    return m_view.ClickHeadByUser(std::wstring(m_heads[static_cast<std::size_t>(column)].id));
}

bool TreeItemModel::ChooseInHead(int column, int command, const QString& text) {
    const ColumnHead head = m_heads[static_cast<std::size_t>(column)];
    const QModelIndexList cells = SelectedCells(column);
    const InputWatch watch(cells);
    if (!m_view.HeadPopupCommandByUser(head.id, command))
        return false;
    // An entry that opens a dialog is no value that rows would have.
    if (const int holders = watch.CountHolders(text).value_or(0); holders > 0) {
        emit InputAnswered(head, text, true);
        emit HeadAnswered(head, holders, static_cast<int>(cells.size()));
    }
    return true;
}

bool TreeItemModel::IsLinkHead(int column) const {
    return m_heads[static_cast<std::size_t>(column)].kind == HeadKind::Link;
}

bool TreeItemModel::TakesFromHead(int column) const {
    return std::ranges::any_of(SelectedCells(column), [&](const QModelIndex& cell) {
        const CellLook look = LookOf(cell);
        return IsLinkHead(column) ? look.link != LinkLook::None && !look.isReadOnly
                                  : look.TakesValues();
    });
}

bool TreeItemModel::AreMoments(int column) const {
    return TakesFromHead(column) &&
           std::ranges::all_of(SelectedCells(column), [](const QModelIndex& cell) {
               const EditKind kind = LookOf(cell).kind;
               return kind == EditKind::None || kind == EditKind::Moment;
           });
}

bool TreeItemModel::CanEditHead(int column) const {
    return !m_view.GetPanel().isReadOnly &&
           (IsLinkHead(column) || GetHeadEditor(column).kind != EditKind::None);
}

EditorRequest TreeItemModel::GetHeadEditor(int column) const {
    if (m_view.GetPanel().isReadOnly)
        return {};
    EditorRequest editor = desktop::GetHeadEditor(m_heads[static_cast<std::size_t>(column)]);
    if (editor.kind != EditKind::Designation)
        return editor;
    // The parts have the names that they have in the rows.
    for (const QModelIndex& cell : SelectedCells(column)) {
        const EditorRequest row = EditorOf(cell);
        if (row.kind == EditKind::Designation)
            editor.partTips = row.partTips;
    }
    return editor;
}

} // namespace desktop
