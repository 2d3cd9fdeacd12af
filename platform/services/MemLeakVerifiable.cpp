#include "host/MemLeakVerifiable.h"

namespace {

std::size_t s_alive = 0;

} // namespace

std::size_t MemLeakVerifiable::GetAliveCount() {
    return s_alive;
}

MemLeakVerifiable::MemLeakVerifiable() {
    ++s_alive;
}

MemLeakVerifiable::~MemLeakVerifiable() {
    --s_alive;
}
