// Counts the objects of the classes that derive from it, so that a host can tell whether any is
// left when none should be.
#pragma once

#include <cstddef>

class MemLeakVerifiable {
public:
    static std::size_t GetAliveCount();

protected:
    MemLeakVerifiable();
    MemLeakVerifiable(const MemLeakVerifiable&) : MemLeakVerifiable() {}
    MemLeakVerifiable& operator=(const MemLeakVerifiable&) = default;
    ~MemLeakVerifiable();
};
