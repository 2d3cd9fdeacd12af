// The cells of texts that the user mostly takes from a list that the application keeps for him:
// revision letters, and the names of the people who sign. He types, or picks an entry of the menu.
#pragma once

#include "cells/PlainCells.h"
#include "cells/TypedGroupCells.h"
#include "host/frame/UserPopupMenus.h"

namespace productTree {

class UserPopupCellImpl : public StringCellImpl {
public:
    UserPopupCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                      const UniqueMetaObjectKey& key, TeeTypPopupIns popupType);

    TreeActionResult OnPopupCommand(int command) override;
    /// None in a read-only cell.
    MenuPtr GetPopupMenu() override;

private:
    TeeTypPopupIns m_popupType;
};

class LiteraCellImpl final : public UserPopupCellImpl {
public:
    LiteraCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                   const UniqueMetaObjectKey& key);
};

class ParticipantCellImpl final : public UserPopupCellImpl {
public:
    ParticipantCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                        const UniqueMetaObjectKey& key);

    /// Also in a read-only cell, which takes none of its texts.
    MenuPtr GetPopupMenu() override;
};

/// What the two groups have in common: the text on which all members agree, and a menu of which an
/// entry goes to all of them. The menu is there in a read-only row, too.
class UserPopupGroupCellImpl : public StringGroupCellImpl {
public:
    using StringGroupCellImpl::StringGroupCellImpl;

    TreeActionResult OnValueEdited() override;
    TreeActionResult OnPopupCommand(int command) override;

private:
    virtual TeeTypPopupIns GetPopupType() const = 0;
};

class LiteraGroupCellImpl final : public UserPopupGroupCellImpl {
public:
    LiteraGroupCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                        const UniqueMetaObjectKey& key);

private:
    MenuPtr GetPopupMenu() override;
    TeeTypPopupIns GetPopupType() const override { return UserPopupLitera; }
};

class ParticipantGroupCellImpl final : public UserPopupGroupCellImpl {
public:
    ParticipantGroupCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                             const UniqueMetaObjectKey& key);

private:
    MenuPtr GetPopupMenu() override;
    TeeTypPopupIns GetPopupType() const override { return UserPopupParticipant; }
};

} // namespace productTree
