#include "bench/Allocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t g_count = 0;

void* CountedAllocation(std::size_t size) {
    ++g_count;
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

namespace bench {

std::size_t GetAllocationCount() {
    return g_count;
}

} // namespace bench

void* operator new(std::size_t size) {
    return CountedAllocation(size);
}

void* operator new[](std::size_t size) {
    return CountedAllocation(size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete[](void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
