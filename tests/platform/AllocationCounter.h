// Counts the allocations of the process, for tests that say what must not allocate.
#pragma once

#include <cstddef>

namespace host_tests {

std::size_t GetAllocationCount();

} // namespace host_tests
