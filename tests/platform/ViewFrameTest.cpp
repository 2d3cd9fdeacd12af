#include "host/EventsBus.h"
#include "host/frame/GuiApp.h"
#include "platform/services/UserDecisions.h"
#include "platform/view/HostFrame.h"

#include <gtest/gtest.h>

namespace {} // namespace
