#include "host/EventsBus.h"

#include <algorithm>
#include <map>
#include <vector>

namespace {

class EventsBus {
public:
    static EventsBus& Get();

    EventsBus(const EventsBus&) = delete;
    EventsBus& operator=(const EventsBus&) = delete;

    void Post(EventsRouterID router, unsigned message, unsigned long wParam, long lParam);
    void Connect(EventsBusSubscriber& subscriber, EventsRouterID router);
    void Disconnect(EventsBusSubscriber& subscriber);

private:
    using Listeners = std::vector<EventsBusSubscriber*>;

    class Delivery;

    EventsBus() = default;

    void DropGone();

    std::map<EventsRouterID, Listeners> m_routers;
    int m_deliveries = 0;
};

/// While it lives, places of listeners who leave stay, emptied, so that the walk over them goes on.
class EventsBus::Delivery {
public:
    explicit Delivery(EventsBus& bus) : m_bus(bus) { ++m_bus.m_deliveries; }
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;
    ~Delivery() {
        if (--m_bus.m_deliveries == 0)
            m_bus.DropGone();
    }

private:
    EventsBus& m_bus;
};

EventsBus& EventsBus::Get() {
    // Never destroyed: subscribers with static lifetime disconnect at any time.
    static EventsBus& bus = *new EventsBus;
    return bus;
}

void EventsBus::Post(EventsRouterID router, unsigned message, unsigned long wParam, long lParam) {
    const auto found = m_routers.find(router);
    if (found == m_routers.end())
        return;
    const Delivery delivery(*this);
    // By place, since the list may grow under the walk; routers are dropped only after it.
    Listeners& listeners = found->second;
    const std::size_t count = listeners.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (listeners[i])
            listeners[i]->Receive(message, wParam, lParam);
    }
}

void EventsBus::Connect(EventsBusSubscriber& subscriber, EventsRouterID router) {
    Disconnect(subscriber);
    m_routers[router].push_back(&subscriber);
}

void EventsBus::Disconnect(EventsBusSubscriber& subscriber) {
    for (auto& [router, listeners] : m_routers)
        std::replace(listeners.begin(), listeners.end(), &subscriber,
                     static_cast<EventsBusSubscriber*>(nullptr));
    if (m_deliveries == 0)
        DropGone();
}

void EventsBus::DropGone() {
    for (auto& [router, listeners] : m_routers)
        std::erase(listeners, nullptr);
    std::erase_if(m_routers, [](const auto& router) { return router.second.empty(); });
}

} // namespace

EventsBusSubscriber::~EventsBusSubscriber() {
    Disconnect();
}

void EventsBusSubscriber::Connect(EventsRouterID router) {
    EventsBus::Get().Connect(*this, router);
}

void EventsBusSubscriber::Disconnect() {
    EventsBus::Get().Disconnect(*this);
}

void EventsBusSubscriber::SetHandler(unsigned message, Handler handler) {
    m_handlers[message] = std::move(handler);
}

void EventsBusSubscriber::Receive(unsigned message, unsigned long wParam, long lParam) {
    const auto found = m_handlers.find(message);
    if (found == m_handlers.end() || !found->second)
        return;
    // A copy, since the handler may replace itself or end this subscriber.
    const Handler handler = found->second;
    handler(wParam, lParam);
}

void PostEvent(EventsRouterID router, unsigned message, unsigned long wParam, long lParam) {
    EventsBus::Get().Post(router, message, wParam, lParam);
}
