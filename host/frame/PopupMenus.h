// Popup menus of the host's resources. A menu is built from its resource without the commands that
// are not offered, the caller gives each item what is sent when it is chosen, and the application
// shows it. The choice is sent after the menu has closed, and is no answer of the call.
#pragma once

#include "host/EventsBus.h"
#include "host/MenuAction.h"
#include "host/ResourceModule.h"
#include "host/SharedText.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

template <class T>
using SArray = std::vector<T>;

/// The number of a resource in its module.
using TResId = unsigned;

class IContextMenuItem {
public:
    virtual ~IContextMenuItem() = default;

    virtual unsigned GetCommand() const = 0;
    virtual SharedText GetText() const = 0;
    virtual const MenuAction& GetAction() const = 0;
    virtual void SetAction(const MenuAction& action) = 0;
};

class IContextMenuModel {
public:
    virtual ~IContextMenuModel() = default;

    /// From top to bottom. Entries may be null: lines between groups of items.
    virtual SArray<IContextMenuItem*> GetItems() const = 0;
};

/// The application's side: it draws menus.
class IPopupMenuTracker {
public:
    virtual ~IPopupMenuTracker() = default;

    /// Shows the menu where the user has asked for one, and returns when it has closed or before:
    /// the model is good during the call alone. What is chosen is sent by RunMenuAction, never from
    /// inside the call. False when it can't be shown.
    virtual bool Track(const IContextMenuModel& menu) = 0;
};

/// Sends what the action says. False when nobody takes it.
bool RunMenuAction(const MenuAction& action);

/// All commands of a menu resource, added to `commands`; none for a resource that is no menu.
void GetPopupMenuCommandArray(TResId menu, SArray<int>& commands,
                              const ResourceModuleHandle& module);

/// Builds the menu without the commands of `removed`, which may be null, calls `prepare` with it
/// and shows it. 0 when it was not shown: there is no such resource, nothing is left of it, or
/// nobody shows menus.
int CreateAndTrackPopupMenu(TResId menu, const ResourceModuleHandle& module,
                            const std::function<void(IContextMenuModel*, TResId)>& prepare,
                            const SArray<unsigned>* removed);
