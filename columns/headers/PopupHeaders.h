// Heads of texts that the user mostly takes from a list that the application keeps for him. They
// share their menus with the cells of their columns.
#pragma once

#include "columns/headers/PlainHeaders.h"
#include "host/frame/UserPopupMenus.h"

namespace productTree {

class UserPopupHeaderImpl : public StringHeaderImpl {
public:
    UserPopupHeaderImpl(const ColumnInfo& column, IfProductTreeData* data,
                        boost::intrusive_ptr<ITreeTableModel> model, TeeTypPopupIns popupType);

    TreeActionResult OnPopupCommand(int command) override;
    boost::intrusive_ptr<IMenuItems> GetPopupMenu() override;

private:
    TeeTypPopupIns m_popupType;
};

class LiteraHeaderImpl final : public UserPopupHeaderImpl {
public:
    LiteraHeaderImpl(const ColumnInfo& column, IfProductTreeData* data,
                     boost::intrusive_ptr<ITreeTableModel> model);
};

class ParticipantHeaderImpl final : public UserPopupHeaderImpl {
public:
    ParticipantHeaderImpl(const ColumnInfo& column, IfProductTreeData* data,
                          boost::intrusive_ptr<ITreeTableModel> model);

    boost::intrusive_ptr<IMenuItems> GetPopupMenu() override;
};

} // namespace productTree
