#include "host/frame/GuiApp.h"
#include "platform/services/SlotStack.h"

namespace {

platform::SlotStack<IGuiApp> s_apps;

} // namespace

IGuiApp* GuiApp() {
    return s_apps.GetCurrent();
}

GuiAppSlot::GuiAppSlot(IGuiApp& app) : m_app(app) {
    s_apps.Add(app);
}

GuiAppSlot::~GuiAppSlot() {
    s_apps.Remove(m_app);
}

void GuiAppSlot::MakeCurrent() {
    s_apps.MakeCurrent(m_app);
}
