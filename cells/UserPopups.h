// The popup menus of the lists that the application keeps for its user. All cells and heads of one
// list share one menu, which is made when the first of them needs it and kept for as long as the
// library is loaded.
#pragma once

#include "host/frame/UserPopupMenus.h"
#include "host/view/ITreeTableRow.h"

#include <optional>

namespace productTree {

/// Null while the application gives no menus, and from the first list on that could not be had: the
/// application is not asked for any again.
MenuPtr GetUserPopupMenu(TeeTypPopupIns list);

/// That of the people who sign. Its first entry is the application's own: it stands for none of
/// them.
MenuPtr GetParticipantPopupMenu();

/// The text that the command stands for in the list; no value for a command that it does not have.
std::optional<SharedText> FindPopupText(int command, TeeTypPopupIns list);

} // namespace productTree
