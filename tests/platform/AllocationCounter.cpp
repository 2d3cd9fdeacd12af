#include "tests/platform/AllocationCounter.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t s_allocations = 0;

} // namespace

std::size_t host_tests::GetAllocationCount() { return s_allocations; }

void* operator new(std::size_t size) {
    ++s_allocations;
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    ++s_allocations;
    return std::malloc(size);
}

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
