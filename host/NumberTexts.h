// Numbers as the host writes them, independent of the process's locale.
#pragma once

#include "host/SharedText.h"

namespace orvex::sys {

/// With at most `digits` digits behind the point; `trimmed` leaves out zeros at the end.
SharedText ToString(double value, bool trimmed, int digits);

} // namespace orvex::sys
