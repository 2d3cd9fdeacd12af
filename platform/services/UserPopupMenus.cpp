#include "platform/services/UserPopupMenus.h"

#include "platform/services/Resources.h"
#include "platform/services/SlotStack.h"

#include <algorithm>
#include <map>

namespace platform {

namespace {

constexpr unsigned c_editText = 1371;
constexpr int c_editCommand = 0;
constexpr int c_firstCommand = 1;

SlotStack<IUserLists> s_lists;

struct FilledMenus {
    /// What the commands of the menus stand for, whatever the list has become since.
    std::vector<SharedText> texts;
    std::vector<boost::intrusive_ptr<IMenuItems>> menus;
};

// Never destroyed: the library may let go of its menus at any time.
std::map<TeeTypPopupIns, FilledMenus>& GetFilled() {
    static auto& filled = *new std::map<TeeTypPopupIns, FilledMenus>;
    return filled;
}

const FilledMenus& FindFilled(TeeTypPopupIns list) {
    static const FilledMenus none;
    const auto found = GetFilled().find(list);
    return found == GetFilled().end() ? none : found->second;
}

MenuEntry MakeEntry(const SharedText& text, int command) {
    MenuAction action;
    action.message = MenuAction::c_command;
    action.first = static_cast<std::uint32_t>(command);
    return {text, action, false};
}

void Fill(IMenuItems& menu, const std::vector<SharedText>& texts) {
    if (menu.GetEntryCount() == 0)
        menu.AddEntry(MakeEntry(GetModuleText(c_hostModule, c_editText), c_editCommand));
    else if (auto* const filled = dynamic_cast<IRefillableMenu*>(&menu))
        filled->DropEntries(1);
    int command = c_firstCommand;
    for (const SharedText& text : texts)
        menu.AddEntry(MakeEntry(text, command++));
}

void FillAll(FilledMenus& filled, std::vector<SharedText> texts) {
    filled.texts = std::move(texts);
    for (const auto& menu : filled.menus)
        Fill(*menu, filled.texts);
}

} // namespace

IUserLists* GetUserLists() {
    return s_lists.GetCurrent();
}

UserListsSlot::UserListsSlot(IUserLists& lists) : m_lists(lists) {
    s_lists.Add(lists);
}

UserListsSlot::~UserListsSlot() {
    s_lists.Remove(m_lists);
}

std::optional<TeeTypPopupIns> FindUserList(const IMenuItems& menu) {
    for (const auto& [list, filled] : GetFilled()) {
        const auto isIt = [&](const auto& other) { return other.get() == &menu; };
        if (std::ranges::any_of(filled.menus, isIt))
            return list;
    }
    return std::nullopt;
}

void RefillUserPopupMenus(TeeTypPopupIns list) {
    const auto filled = GetFilled().find(list);
    if (filled == GetFilled().end() || !GetUserLists())
        return;
    UserListReading reading = GetUserLists()->Read(list);
    if (reading.fault.IsEmpty() && !(reading.texts == filled->second.texts))
        FillAll(filled->second, std::move(reading.texts));
}

std::optional<int> FindUserPopupCommand(TeeTypPopupIns list, const SharedText& text) {
    const std::vector<SharedText>& texts = FindFilled(list).texts;
    const auto found = std::ranges::find(texts, text);
    if (found == texts.end())
        return std::nullopt;
    return c_firstCommand + static_cast<int>(found - texts.begin());
}

} // namespace platform

bool FillUserPopupMenu(TeeTypPopupIns list, boost::intrusive_ptr<IMenuItems> menu) {
    platform::IUserLists* const lists = platform::GetUserLists();
    if (!lists || !menu)
        return false;
    platform::UserListReading reading = lists->Read(list);
    if (!reading.fault.IsEmpty()) {
        lists->NoteUnreadable(reading.fault);
        return false;
    }
    platform::FilledMenus& filled = platform::GetFilled()[list];
    filled.menus.push_back(std::move(menu));
    platform::FillAll(filled, std::move(reading.texts));
    return true;
}

void GetCommandArrayFromPopupMenu(SArray<int>& commands, TeeTypPopupIns list) {
    const int count = static_cast<int>(platform::FindFilled(list).texts.size());
    for (int i = 0; i < count; ++i)
        commands.push_back(platform::c_firstCommand + i);
}

void GetStringFromPopupMenu(SharedText& text, unsigned command, TeeTypPopupIns list) {
    const std::vector<SharedText>& texts = platform::FindFilled(list).texts;
    const std::size_t place = std::size_t{command} - platform::c_firstCommand;
    text = place < texts.size() ? texts[place] : SharedText();
}
