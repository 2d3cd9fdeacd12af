// Numeric limits of the host.
#pragma once

namespace Math {

/// The smallest meaningful size of a double: anything nearer to 0 counts as 0.
inline constexpr double doubleRegion = 1e-10;

} // namespace Math
