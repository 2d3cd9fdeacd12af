#include "columns/headers/PopupHeaders.h"

#include "cells/UserPopups.h"

#include <utility>

namespace productTree {

using ModelPtr = boost::intrusive_ptr<ITreeTableModel>;

UserPopupHeaderImpl::UserPopupHeaderImpl(const ColumnInfo& column, IfProductTreeData* data,
                                         ModelPtr model, TeeTypPopupIns popupType)
    : StringHeaderImpl(column, data, std::move(model)), m_popupType(popupType) {}

TreeActionResult UserPopupHeaderImpl::OnPopupCommand(int command) {
    const std::optional<SharedText> text = FindPopupText(command, m_popupType);
    return text ? ApplyValueToSelection(PropValue(SimplePropVal(*text))) : TreeActionResult();
}

boost::intrusive_ptr<IMenuItems> UserPopupHeaderImpl::GetPopupMenu() {
    return GetUserPopupMenu(m_popupType);
}

LiteraHeaderImpl::LiteraHeaderImpl(const ColumnInfo& column, IfProductTreeData* data,
                                   ModelPtr model)
    : UserPopupHeaderImpl(column, data, std::move(model), UserPopupLitera) {}

ParticipantHeaderImpl::ParticipantHeaderImpl(const ColumnInfo& column, IfProductTreeData* data,
                                             ModelPtr model)
    : UserPopupHeaderImpl(column, data, std::move(model), UserPopupParticipant) {}

boost::intrusive_ptr<IMenuItems> ParticipantHeaderImpl::GetPopupMenu() {
    return GetParticipantPopupMenu();
}

} // namespace productTree
