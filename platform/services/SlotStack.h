// Places that hosts answer from, of which the last one counts. They may go in any order, and any of
// them can become the last.
#pragma once

#include <vector>

namespace platform {

template <class Host>
class SlotStack {
public:
    Host* GetCurrent() const { return m_hosts.empty() ? nullptr : m_hosts.back(); }
    void Add(Host& host) { m_hosts.push_back(&host); }
    void Remove(Host& host) { std::erase(m_hosts, &host); }
    void MakeCurrent(Host& host) {
        Remove(host);
        Add(host);
    }

private:
    std::vector<Host*> m_hosts;
};

} // namespace platform
