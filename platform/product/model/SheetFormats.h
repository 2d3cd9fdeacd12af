// Names of sheets by their size, as drawings are printed on them.
#pragma once

#include "host/SharedText.h"

namespace platform {

/// In millimetres, either way up: "A3", an elongated one as "A4x3". Empty for a size that is none
/// of a standard sheet's, to 2 mm.
SharedText FindSheetFormat(double width, double height);

} // namespace platform
