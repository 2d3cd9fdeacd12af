// The host's popup menu, at a cell or at a column's head.
#pragma once

#include "host/MenuAction.h"
#include "host/RcBase.h"
#include "host/SharedText.h"

#include <cstddef>

/// One line of a popup menu.
struct MenuEntry {
    SharedText text;
    /// OnItemPopupCommand or OnHeaderPopupCommand of the control is called with its command when
    /// the user chooses the entry. Each command stands in a menu once. An action without message is
    /// none yet.
    MenuAction action;
    bool isChecked = false;

    int GetCommand() const { return static_cast<int>(action.first); }

    friend bool operator==(const MenuEntry&, const MenuEntry&) = default;
};

/// Of IGuiApp::CreateMenu. The library fills a menu before it hands it to a cell or a head, or lets
/// FillUserPopupMenu do it, and many cells may share one, which lives as long as the library. The
/// view shows the entries in their order when the user asks for them. No operation calls back.
class IMenuItems : public IRefItem {
public:
    /// Behind the entries that are there.
    virtual void AddEntry(const MenuEntry& entry) = 0;
    virtual std::size_t GetEntryCount() const = 0;
    /// `place` is below GetEntryCount.
    virtual MenuEntry GetEntry(std::size_t place) const = 0;
    /// `place` as above.
    virtual void SetAction(std::size_t place, const MenuAction& action) = 0;
    /// A command that stands in no entry changes nothing.
    virtual void SetChecked(int command, bool isChecked) = 0;
};
