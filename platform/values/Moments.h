// Moments as ISO 8601 texts, "2024-05-01T12:00:00Z", in the years 1 to 9999.
// SimplePropVal::to_wstring writes them.
#pragma once

#include "host/SimplePropVal.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// No value: the text is no moment. A date alone is its midnight.
std::optional<DateTime> ParseMoment(std::string_view text);

} // namespace platform
