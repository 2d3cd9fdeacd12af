// Tells standard parts by their names, which is all that STEP has to offer.
#pragma once

#include <string_view>

namespace desktop::step {

/// Somewhere in the text stands a standards body with a number, both whole words: "ISO 4762
/// M5x16", "screw_M4x10-DIN912". Bodies may follow each other ("DIN EN ISO 4762"), and a letter may
/// stand before the number where the body numbers so ("JIS B 1176").
bool NamesStandard(std::wstring_view text);

} // namespace desktop::step
