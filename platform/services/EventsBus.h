// The host's events bus: brings messages posted on a router to everybody who listens to it. The
// host posts; listening is EventsBusSubscriber's business. Everything runs at once, on the UI
// thread.
#pragma once

#include "host/EventsBus.h"

#include <map>
#include <vector>

namespace platform {

class EventsBus {
public:
    static EventsBus& Get();

    EventsBus(const EventsBus&) = delete;
    EventsBus& operator=(const EventsBus&) = delete;

    /// Delivers the message in the order in which the listeners have connected. A handler may
    /// connect, disconnect and destroy listeners, itself included, and post again: who has left
    /// gets nothing more, who has come gets the next message.
    void Post(EventsRouterID router, unsigned message, unsigned long wParam, long lParam);

    /// Called by the subscriber alone.
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

} // namespace platform
