#include "host/frame/PopupMenus.h"

#include "host/frame/GuiApp.h"
#include "platform/services/Resources.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <span>
#include <unordered_set>

namespace {

// The menus of the module "oProductTree". 0: a line between groups of items.
constexpr int c_itemMenu[] = {7752, 7763, 7020, 5707, 0,    7753, 7755, 7754, 7787, 0,   7759,
                              7761, 7762, 7765, 0,    7764, 7757, 0,    7746, 0,    7758};
constexpr int c_columnMenu[] = {7766, 0, 7765, 7789, 0, 7790, 7795};
constexpr int c_rowsMenu[] = {7789, 7765, 0, 7791, 7792, 7793, 7794, 0, 7746};

struct MenuResource {
    TResId id;
    std::span<const int> commands;
};

constexpr MenuResource c_menus[] = {
    {31064, c_itemMenu},
    {31069, c_columnMenu},
    {31070, c_rowsMenu},
};

std::span<const int> FindCommands(TResId menu, const ResourceModuleHandle& module) {
    const auto* const found = std::ranges::find(c_menus, menu, &MenuResource::id);
    return module.GetName() == "oProductTree" && found != std::end(c_menus)
               ? found->commands
               : std::span<const int>();
}

class MenuItem final : public IContextMenuItem {
public:
    MenuItem(unsigned command, SharedText text) : m_command(command), m_text(std::move(text)) {}

    unsigned GetCommand() const override { return m_command; }
    SharedText GetText() const override { return m_text; }
    const MenuAction& GetAction() const override { return m_action; }
    void SetAction(const MenuAction& action) override { m_action = action; }

private:
    unsigned m_command;
    SharedText m_text;
    MenuAction m_action;
};

class MenuModel final : public IContextMenuModel {
public:
    void AddItem(unsigned command, SharedText text) {
        m_items.push_back(std::make_unique<MenuItem>(command, std::move(text)));
    }
    // None stands at the beginning, and never two together.
    void AddLine() {
        if (!m_items.empty() && m_items.back())
            m_items.push_back(nullptr);
    }
    void DropLastLine() {
        if (!m_items.empty() && !m_items.back())
            m_items.pop_back();
    }
    bool IsEmpty() const { return m_items.empty(); }

    SArray<IContextMenuItem*> GetItems() const override {
        SArray<IContextMenuItem*> items;
        for (const auto& item : m_items)
            items.push_back(item.get());
        return items;
    }

private:
    std::vector<std::unique_ptr<MenuItem>> m_items;
};

// Never destroyed: receivers with static lifetime leave at any time.
std::unordered_set<const LEventsHandler*>& GetReceivers() {
    static auto& receivers = *new std::unordered_set<const LEventsHandler*>;
    return receivers;
}

} // namespace

LEventsHandler::LEventsHandler() {
    GetReceivers().insert(this);
}

LEventsHandler::~LEventsHandler() {
    GetReceivers().erase(this);
}

bool SendCommand(LEventsHandler* receiver, unsigned command, int code) {
    return GetReceivers().contains(receiver) && receiver->OnCommand(command, code);
}

bool RunMenuAction(const MenuAction& action) {
    return action.message == MenuAction::c_command && SendCommand(action.target, action.first, 0);
}

void GetPopupMenuCommandArray(TResId menu, SArray<int>& commands,
                              const ResourceModuleHandle& module) {
    std::ranges::remove_copy(FindCommands(menu, module), std::back_inserter(commands), 0);
}

int CreateAndTrackPopupMenu(TResId menu, const ResourceModuleHandle& module,
                            const std::function<void(IContextMenuModel*, TResId)>& prepare,
                            const SArray<unsigned>* removed) {
    MenuModel model;
    for (const int command : FindCommands(menu, module)) {
        const auto id = static_cast<unsigned>(command);
        if (command == 0)
            model.AddLine();
        else if (!removed || std::ranges::find(*removed, id) == removed->end())
            model.AddItem(id, module.GetText(id));
    }
    model.DropLastLine();
    IGuiApp* const app = GuiApp();
    IPopupMenuTracker* const tracker = app ? app->GetPopupMenuTracker() : nullptr;
    if (model.IsEmpty() || !tracker)
        return 0;
    if (prepare)
        prepare(&model, menu);
    return tracker->Track(model) ? 1 : 0;
}

IItApplication* GetItApplicationObject() {
    IGuiApp* const app = GuiApp();
    return app ? app->GetItApplication() : nullptr;
}
