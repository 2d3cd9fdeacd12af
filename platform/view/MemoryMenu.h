// A popup menu in memory, which a front end shows as it is.
#pragma once

#include "platform/services/UserPopupMenus.h"

#include <algorithm>
#include <vector>

namespace platform {

class MemoryMenu final : public RcBase<IMenuItems>, public IRefillableMenu {
public:
    void AddEntry(const MenuEntry& entry) override { m_entries.push_back(entry); }
    std::size_t GetEntryCount() const override { return m_entries.size(); }
    MenuEntry GetEntry(std::size_t place) const override { return m_entries[place]; }
    void SetAction(std::size_t place, const MenuAction& action) override {
        m_entries[place].action = action;
    }
    void SetChecked(int command, bool isChecked) override {
        for (MenuEntry& entry : m_entries) {
            if (entry.GetCommand() == command)
                entry.isChecked = isChecked;
        }
    }
    void DropEntries(std::size_t place) override {
        m_entries.resize(std::min(place, m_entries.size()));
    }

private:
    std::vector<MenuEntry> m_entries;
};

} // namespace platform
