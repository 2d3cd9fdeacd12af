// The place of the running application, which GuiApp() answers from. The program fills it for as
// long as it runs, a test for as long as the test does.
#pragma once

#include "host/frame/GuiApp.h"

namespace platform {

class GuiAppSlot {
public:
    /// `app` is the running application until this object goes, then the one before it is again.
    explicit GuiAppSlot(IGuiApp& app);
    GuiAppSlot(const GuiAppSlot&) = delete;
    GuiAppSlot& operator=(const GuiAppSlot&) = delete;
    ~GuiAppSlot();

private:
    IGuiApp* m_previous;
};

} // namespace platform
