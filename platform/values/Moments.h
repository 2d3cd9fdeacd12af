// Moments as ISO 8601 texts, "2024-05-01T12:00:00Z", in the years 1 to 9999.
#pragma once

#include "host/SimplePropVal.h"

#include <optional>
#include <string>
#include <string_view>

namespace desktop::store {

std::string FormatMoment(DateTime moment);
/// No value: the text is no moment. A date alone is its midnight.
std::optional<DateTime> ParseMoment(std::string_view text);

} // namespace desktop::store
