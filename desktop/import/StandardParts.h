// Tells standard parts by their names, which is all that STEP has to offer.
#pragma once

#include <string_view>

namespace desktop::step {

/// The text begins with a standards body and a number, as "ISO 4762 M5x16" or "DIN_912" do. Bodies
/// may follow each other ("DIN EN ISO 4762"), and a letter may stand before the number where the
/// body numbers so ("JIS B 1176").
bool BeginsWithStandard(std::wstring_view text);

} // namespace desktop::step
