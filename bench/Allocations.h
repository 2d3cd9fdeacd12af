// Counts allocations: the one measure that is the same at every run.
#pragma once

#include <cstddef>

namespace bench {

/// Calls of operator new in this process so far.
std::size_t GetAllocationCount();

} // namespace bench
