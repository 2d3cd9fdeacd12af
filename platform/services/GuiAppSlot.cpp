#include "host/frame/GuiApp.h"

#include <utility>

namespace {

IGuiApp* s_app = nullptr;

} // namespace

IGuiApp* GuiApp() {
    return s_app;
}

GuiAppSlot::GuiAppSlot(IGuiApp& app) : m_previous(std::exchange(s_app, &app)) {}

GuiAppSlot::~GuiAppSlot() {
    s_app = m_previous;
}
