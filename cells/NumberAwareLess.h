// The order of texts that mostly begin with numbers: 9 before 10, 9a behind 9.
#pragma once

#include "host/SharedText.h"

namespace productTree {

/// A strict weak order over any texts, independent of the locale. Texts that begin with a number
/// are compared by it, exponent included, then by what stands behind its digits; two that agree in
/// both are equivalent. Other texts come before or behind all of these, by their first character,
/// in plain order.
struct NumberAwareLess {
    bool operator()(const SharedText& a, const SharedText& b) const;
};

} // namespace productTree
