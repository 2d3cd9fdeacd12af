// Numbers as the host writes them, independent of the process's locale.
#pragma once

#include "host/SharedText.h"

namespace orvex::sys {

/// With at most `digits` digits behind the point; `trimmed` leaves out zeros at the end.
SharedText ToString(double value, bool trimmed, int digits);

/// Without the zeros at the end of a decimal fraction, and without the point when nothing is left
/// behind it: 2.50 is 2.5, 4.00 is 4. Any other text, 10 and "2.50 m" among them, is given back as
/// it is.
SharedText TrimLastZeros(const SharedText& text);

} // namespace orvex::sys
