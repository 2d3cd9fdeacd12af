#include "cells/PopupCells.h"

#include "cells/UserPopups.h"
#include "host/FormatLabelUtils.h"
#include "host/data/IfProductTreeData.h"

#include <utility>

namespace productTree {

namespace {

// The values are read again in any case: the menu may have been that of another list.
TreeActionResult TakePopupText(IfProductTreeData& data, ProductTreeCellImpl& cell, int command,
                               TeeTypPopupIns list) {
    if (const std::optional<SharedText> text = FindPopupText(command, list)) {
        ProductInfObjChangesResult changes =
            cell.MakeChanges(PropValue(SimplePropVal(*text)), std::nullopt);
        data.CommitChanges(changes);
    }
    TreeActionResult result;
    result.action = TreeActionResult::ValuesChanged;
    return result;
}

} // namespace

UserPopupCellImpl::UserPopupCellImpl(IfProductTreeData* data, TreeRowPtr row,
                                     const ColumnInfo& column, const UniqueMetaObjectKey& key,
                                     TeeTypPopupIns popupType)
    : StringCellImpl(data, std::move(row), column, key), m_popupType(popupType) {}

TreeActionResult UserPopupCellImpl::OnPopupCommand(int command) {
    return TakePopupText(*m_data, *this, command, m_popupType);
}

MenuPtr UserPopupCellImpl::GetPopupMenu() {
    return IsEditable() ? GetUserPopupMenu(m_popupType) : nullptr;
}

LiteraCellImpl::LiteraCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                               const UniqueMetaObjectKey& key)
    : UserPopupCellImpl(data, std::move(row), column, key, UserPopupLitera) {}

ParticipantCellImpl::ParticipantCellImpl(IfProductTreeData* data, TreeRowPtr row,
                                         const ColumnInfo& column, const UniqueMetaObjectKey& key)
    : UserPopupCellImpl(data, std::move(row), column, key, UserPopupParticipant) {}

MenuPtr ParticipantCellImpl::GetPopupMenu() {
    return GetParticipantPopupMenu();
}

// What goes back is worked out afresh: the members may show something else by now.
TreeActionResult UserPopupGroupCellImpl::OnValueEdited() {
    const PropValue value{SimplePropVal(m_row->GetCellText(GetColumnId()))};
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::ValuesChanged, [this] {
        const SharedText text = GetGroupValue().to_wstring();
        m_row->SetCellText(GetColumnId(), text, format_label_utils::FormatLabelForDisplay(text));
    });
}

TreeActionResult UserPopupGroupCellImpl::OnPopupCommand(int command) {
    return TakePopupText(*m_data, *this, command, GetPopupType());
}

LiteraGroupCellImpl::LiteraGroupCellImpl(IfProductTreeData* data, TreeRowPtr row,
                                         const ColumnInfo& column, const UniqueMetaObjectKey& key)
    : UserPopupGroupCellImpl(data, std::move(row), column, GroupMode::CommonValue, key) {}

MenuPtr LiteraGroupCellImpl::GetPopupMenu() {
    return GetUserPopupMenu(UserPopupLitera);
}

ParticipantGroupCellImpl::ParticipantGroupCellImpl(IfProductTreeData* data, TreeRowPtr row,
                                                   const ColumnInfo& column,
                                                   const UniqueMetaObjectKey& key)
    : UserPopupGroupCellImpl(data, std::move(row), column, GroupMode::CommonValue, key) {}

MenuPtr ParticipantGroupCellImpl::GetPopupMenu() {
    return GetParticipantPopupMenu();
}

} // namespace productTree
