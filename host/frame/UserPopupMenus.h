// Lists of texts that the application keeps for its user, and the popup menus made of them:
// revision letters, the people who sign. The user picks a text where it would have to be typed
// otherwise.
#pragma once

#include "host/frame/PopupMenus.h"
#include "host/view/IMenuItems.h"

/// The application's number of a list.
enum TeeTypPopupIns : int {
    UserPopupLitera = 9,
    UserPopupParticipant = 12,
};

/// Fills a menu that has no entries with those of the list. The first entry of the participants is
/// the application's own: the library gives it the command 0, which stands for no text. False when
/// the list can't be had; no list is asked for again then. Asked once a list, on first need.
bool FillUserPopupMenu(TeeTypPopupIns list, boost::intrusive_ptr<IMenuItems> menu);

/// Adds the commands of the entries that stand for a text to `commands`.
void GetCommandArrayFromPopupMenu(SArray<int>& commands, TeeTypPopupIns list);

/// `text` becomes that of the command, and empty when the list does not have it.
void GetStringFromPopupMenu(SharedText& text, unsigned command, TeeTypPopupIns list);
