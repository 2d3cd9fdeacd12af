// Pairs of host calls that must not come apart, and flags that must not stay set, when a host
// throws.
#pragma once

#include <utility>

namespace productTree {

/// Runs `body`, then `end`, which runs too when `body` throws; the first exception goes on.
template <class Body, class End>
void RunBracketed(const Body& body, const End& end) {
    try {
        body();
    } catch (...) {
        try {
            end();
        } catch (...) {
            // The first exception is the one that tells what went wrong.
        }
        throw;
    }
    end();
}

/// Sets a flag for as long as it lives.
class FlagScope {
public:
    explicit FlagScope(bool& flag) : m_flag(flag), m_before(std::exchange(flag, true)) {}
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;
    ~FlagScope() { m_flag = m_before; }

private:
    bool& m_flag;
    bool m_before;
};

} // namespace productTree
