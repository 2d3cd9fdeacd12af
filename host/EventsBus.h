// The host's events bus and the receiver of menu commands. Everything runs at once, on the UI
// thread.
#pragma once

#include <compare>
#include <functional>
#include <unordered_map>

/// Names a router of the bus.
struct EventsRouterID {
    int group = 0;
    int number = 0;

    friend auto operator<=>(const EventsRouterID&, const EventsRouterID&) = default;
};

class EventsReceiver {
public:
    EventsReceiver() = default;
    EventsReceiver(const EventsReceiver&) = delete;
    EventsReceiver& operator=(const EventsReceiver&) = delete;
    virtual ~EventsReceiver() = default;
};

/// A receiver of commands chosen in the host's menus.
class LEventsHandler : public EventsReceiver {
public:
    LEventsHandler();
    /// Nothing that was chosen for it arrives any more.
    ~LEventsHandler() override;

    /// A command was chosen, or another one of the host's is on its way. False for one that is
    /// nothing to the receiver, and for a negative `code`, which only asks.
    virtual bool OnCommand(unsigned command, int code) = 0;
};

/// Gives the command to the receiver, which may be gone by now: false then.
bool SendCommand(LEventsHandler* receiver, unsigned command, int code);

/// Listens to one router. The table says which messages; the bus calls a handler on the UI thread,
/// inside the call that posts the message.
class EventsBusSubscriber {
public:
    using Handler = std::function<void(unsigned long wParam, long lParam)>;

    EventsBusSubscriber() = default;
    EventsBusSubscriber(const EventsBusSubscriber&) = delete;
    EventsBusSubscriber& operator=(const EventsBusSubscriber&) = delete;
    /// Disconnects.
    virtual ~EventsBusSubscriber();

    /// Listens to `router` from now on, and to no other.
    void Connect(EventsRouterID router);
    void Disconnect();
    /// One handler a message: a second one for the same message replaces the first.
    void SetHandler(unsigned message, Handler handler);
    /// Called by the bus. A message without handler is ignored.
    void Receive(unsigned message, unsigned long wParam, long lParam);

private:
    std::unordered_map<unsigned, Handler> m_handlers;
};

/// Posts a message on a router, which is the host's side of the bus: everybody who listens there
/// gets it inside the call, in the order in which they have connected. A handler may connect,
/// disconnect and destroy listeners, itself included, and post again: who has left gets nothing
/// more, who has come gets the next message.
void PostEvent(EventsRouterID router, unsigned message, unsigned long wParam, long lParam);
