#include "host/EventsBus.h"

#include <gmock/gmock.h>
#include <memory>
#include <vector>

namespace {

using testing::ElementsAre;

constexpr EventsRouterID c_router{0, 7};
constexpr EventsRouterID c_otherRouter{0, 8};
constexpr unsigned c_message = 0x601;

void Post(EventsRouterID router = c_router, unsigned message = c_message) { PostEvent(router, message, 1, 2); }

/// Notes its name when the message comes.
struct Listener : EventsBusSubscriber {
    Listener(int number, std::vector<int>& log, EventsRouterID router = c_router) {
        SetHandler(c_message, [number, &log](unsigned long, long) { log.push_back(number); });
        Connect(router);
    }
};

TEST(EventsBus, ListenersOfTheRouterGetTheirMessagesInOrder) {
    std::vector<int> log;
    Listener first(1, log);
    Listener second(2, log);
    Listener elsewhere(3, log, c_otherRouter);
    Post();
    Post(c_router, c_message + 1);
    EXPECT_THAT(log, ElementsAre(1, 2));
    Post(c_otherRouter);
    EXPECT_THAT(log, ElementsAre(1, 2, 3));
}

TEST(EventsBus, WhoLeavesDuringDeliveryGetsNothingMore) {
    std::vector<int> log;
    EventsBusSubscriber killer;
    std::unique_ptr<Listener> before = std::make_unique<Listener>(1, log);
    std::unique_ptr<Listener> after;
    killer.SetHandler(c_message, [&](unsigned long, long) {
        before.reset();
        after.reset();
    });
    killer.Connect(c_router);
    after = std::make_unique<Listener>(2, log);
    Listener last(3, log);
    Post();
    EXPECT_THAT(log, ElementsAre(1, 3));
}

TEST(EventsBus, AListenerMayEndItself) {
    auto subscriber = std::make_unique<EventsBusSubscriber>();
    int calls = 0;
    subscriber->SetHandler(c_message, [&](unsigned long, long) {
        subscriber.reset();
        ++calls; // what the handler has captured is still there
    });
    subscriber->Connect(c_router);
    Post();
    Post();
    EXPECT_EQ(calls, 1);
}

TEST(EventsBus, AHandlerThatThrowsLeavesTheBusInOrder) {
    std::vector<int> log;
    {
        EventsBusSubscriber thrower;
        thrower.SetHandler(c_message, [](unsigned long, long) { throw 1; });
        thrower.Connect(c_router);
        EXPECT_THROW(Post(), int);
    }
    Listener listener(1, log);
    Post();
    EXPECT_THAT(log, ElementsAre(1));
}

} // namespace
