// What the program does without a window.
#pragma once

#include "desktop/CommandLine.h"
#include "desktop/Session.h"

namespace desktop {

/// Works the masses out while the caller waits. Nothing happens for a product file.
void ComputeMasses(Session& session);

/// The tree in the form, of all rows when `allRows`.
std::string Print(const Session& session, PrintForm form, bool allRows);

} // namespace desktop
