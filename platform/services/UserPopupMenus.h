// The lists of texts that the application keeps for its user, and the popup menus that are made of
// them: who gives the texts, which menus there are, and filling these anew when a list was edited.
// The library keeps its menus for as long as it is loaded, so that they change and are never
// replaced. The first entry of each, with the command 0, is for editing the list; the texts follow
// with commands from 1 on.
#pragma once

#include "host/frame/UserPopupMenus.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace platform {

struct UserListReading {
    std::vector<SharedText> texts;
    /// Nobody has changed the list yet, or what he has changed is gone.
    bool isStandard = false;
    /// Why it can't be read; empty: it was read.
    SharedText fault;
};

/// Whoever keeps the lists, where platform code knows no file.
class IUserLists {
public:
    virtual ~IUserLists() = default;

    virtual UserListReading Read(TeeTypPopupIns list) = 0;
    /// Why it can't be written, and all is as before; empty: it was written.
    virtual SharedText Write(TeeTypPopupIns list, const std::vector<SharedText>& texts) = 0;
    /// There will be no menus of any list until the library is loaded anew. Called in the middle of
    /// what a panel does: nothing is to be asked or shown before that is over.
    virtual void NoteUnreadable(const SharedText& fault) = 0;
};

/// Null while nobody keeps any.
IUserLists* GetUserLists();

class UserListsSlot {
public:
    /// `lists` give the texts until others come or this object goes, then others that are there.
    explicit UserListsSlot(IUserLists& lists);
    UserListsSlot(const UserListsSlot&) = delete;
    UserListsSlot& operator=(const UserListsSlot&) = delete;
    ~UserListsSlot();

private:
    IUserLists& m_lists;
};

/// A menu that can be filled again.
class IRefillableMenu {
public:
    virtual ~IRefillableMenu() = default;

    /// Entries from that place on go.
    virtual void DropEntries(std::size_t place) = 0;
};

/// The list that the menu was filled from; no value for any other menu.
std::optional<TeeTypPopupIns> FindUserList(const IMenuItems& menu);
/// Fills the list's menus with what it holds now. Their first entry stays as it is, and all of them
/// when the list can't be read. To be called while none of them is shown: what was a text's command
/// may be another one's then.
void RefillUserPopupMenus(TeeTypPopupIns list);
/// The command of a text in the list's menus; no value for one that they do not have.
std::optional<int> FindUserPopupCommand(TeeTypPopupIns list, const SharedText& text);

} // namespace platform
