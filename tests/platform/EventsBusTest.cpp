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

TEST(EventsBus, ParametersAreHandedOn) {
    EventsBusSubscriber subscriber;
    unsigned long gotW = 0;
    long gotL = 0;
    subscriber.SetHandler(c_message, [&](unsigned long w, long l) {
        gotW = w;
        gotL = l;
    });
    subscriber.Connect(c_router);
    PostEvent(c_router, c_message, ~0UL, -5);
    EXPECT_EQ(gotW, ~0UL);
    EXPECT_EQ(gotL, -5);
}

TEST(EventsBus, AListenerHearsOneRouterAndTheLastHandler) {
    std::vector<int> log;
    Listener listener(1, log);
    listener.Connect(c_otherRouter);
    listener.SetHandler(c_message, [&](unsigned long, long) { log.push_back(2); });
    Post();
    EXPECT_TRUE(log.empty());
    Post(c_otherRouter);
    EXPECT_THAT(log, ElementsAre(2));
    listener.Disconnect();
    listener.Disconnect();
    Post(c_otherRouter);
    EXPECT_THAT(log, ElementsAre(2));
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

TEST(EventsBus, WhoComesDuringDeliveryGetsTheNextMessage) {
    std::vector<int> log;
    std::vector<std::unique_ptr<Listener>> born;
    EventsBusSubscriber parent;
    parent.SetHandler(c_message, [&](unsigned long, long) {
        for (int i = 0; i < 20; ++i)
            born.push_back(std::make_unique<Listener>(i, log, c_router));
    });
    parent.Connect(c_router);
    Post();
    EXPECT_TRUE(log.empty());
    parent.Disconnect();
    Post();
    EXPECT_EQ(log.size(), 20U);
}

TEST(EventsBus, HandlersMayPostAgain) {
    std::vector<int> log;
    EventsBusSubscriber echo;
    auto victim = std::make_unique<Listener>(1, log);
    echo.SetHandler(c_message, [&](unsigned long, long) {
        Post(c_router, c_message + 1);
        log.push_back(9);
    });
    echo.SetHandler(c_message + 1, [&](unsigned long, long) { victim.reset(); });
    echo.Connect(c_router);
    Listener last(2, log);
    Post();
    EXPECT_THAT(log, ElementsAre(1, 9, 2));
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
