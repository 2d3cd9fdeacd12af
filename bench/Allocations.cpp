#include "bench/Allocations.h"

#include <cstddef>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::size_t g_count = 0;

void* CountedAllocation(std::size_t size) {
    ++g_count;
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

// Memory resources ask with an alignment, mostly one that malloc keeps anyway.
void* CountedAllocation(std::size_t size, std::align_val_t alignment) {
    const auto step = static_cast<std::size_t>(alignment);
    if (step <= alignof(std::max_align_t))
        return CountedAllocation(size);
    ++g_count;
    if (void* memory = std::aligned_alloc(step, (size + step - 1) / step * step))
        return memory;
    throw std::bad_alloc();
}

} // namespace

namespace bench {

std::size_t GetAllocationCount() {
    return g_count;
}

std::size_t GetLiveBytes() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

} // namespace bench

void* operator new(std::size_t size) {
    return CountedAllocation(size);
}

void* operator new[](std::size_t size) {
    return CountedAllocation(size);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    return CountedAllocation(size, alignment);
}

void* operator new[](std::size_t size, std::align_val_t alignment) {
    return CountedAllocation(size, alignment);
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

void operator delete(void* memory, std::align_val_t) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::align_val_t) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
    std::free(memory);
}
