// Counts allocations and what they hold: the measures that are the same at every run.
#pragma once

#include <cstddef>

namespace bench {

/// Calls of operator new in this process so far.
std::size_t GetAllocationCount();

/// Bytes that the allocator has given out and not got back, its own headers included. Qt asks it
/// past operator new for texts and lists, so that it is asked itself.
std::size_t GetLiveBytes();

} // namespace bench
