#include "base/event.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace telvar::tests {
namespace {

using base::Connection;
using base::Event;

TEST(Event, CallsItsHandlersInOrderOfConnection) {
    Event<int> event;
    std::string log;
    event.connect([&](int value) { log += "a" + std::to_string(value); });
    event.connect([&](int value) { log += "b" + std::to_string(value); });
    event(1);
    event(2);
    EXPECT_EQ(log, "a1b1a2b2");
}

TEST(Event, ArgumentsByReferenceReachTheCallerChanged) {
    Event<std::string&, bool&> event;
    event.connect([](std::string& text, bool& flag) {
        text += "x";
        flag = true;
    });
    event.connect([](std::string& text, bool&) { text += "y"; });
    std::string text = "w";
    bool flag = false;
    event(text, flag);
    EXPECT_EQ(text, "wxy");
    EXPECT_TRUE(flag);
}

TEST(Event, IsConnectedOnlyWhileSomebodyListens) {
    Event<> event;
    EXPECT_FALSE(event.connected());
    {
        const auto connection = event.connectScoped([] {});
        EXPECT_TRUE(event.connected());
    }
    EXPECT_FALSE(event.connected());
}

TEST(Event, AConnectionEndsWithItsObjectAndMayBeMoved) {
    Event<> event;
    int calls = 0;
    Connection kept;
    {
        auto connection = event.connectScoped([&] { ++calls; });
        kept = std::move(connection);
    }
    event();
    EXPECT_EQ(calls, 1);
    kept = Connection();
    event();
    EXPECT_EQ(calls, 1);
}

TEST(Event, AConnectionMayOutliveItsEvent) {
    auto event = std::make_unique<Event<>>();
    auto connection = event->connectScoped([] {});
    event.reset();
    connection.end();
    connection.end();
}

TEST(Event, AHandlerMayEndItsOwnConnectionAndFinishes) {
    Event<> event;
    std::string log;
    Connection connection;
    connection = event.connectScoped([&, owned = std::string("still here")] {
        connection.end();
        log += owned;
    });
    event();
    event();
    EXPECT_EQ(log, "still here");
}

TEST(Event, AHandlerThatEndsALaterConnectionKeepsItFromBeingCalled) {
    Event<> event;
    std::string log;
    Connection later;
    event.connect([&] {
        log += "a";
        later.end();
    });
    later = event.connectScoped([&] { log += "b"; });
    event.connect([&] { log += "c"; });
    event();
    EXPECT_EQ(log, "ac");
}

TEST(Event, AHandlerThatEndsAnEarlierConnectionDoesNotSkipTheNextOne) {
    Event<> event;
    std::string log;
    auto earlier = event.connectScoped([&] { log += "a"; });
    event.connect([&] {
        log += "b";
        earlier.end();
    });
    event.connect([&] { log += "c"; });
    event();
    event();
    EXPECT_EQ(log, "abcbc");
}

TEST(Event, AHandlerConnectedInsideARoundIsCalledFromTheNextRoundOn) {
    Event<> event;
    std::string log;
    bool once = true;
    event.connect([&] {
        log += "a";
        if (std::exchange(once, false)) {
            for (int i = 0; i < 100; ++i) {
                event.connect([&] { log += "b"; });
            }
        }
    });
    event();
    EXPECT_EQ(log, "a");
    event();
    EXPECT_EQ(log, "aa" + std::string(100, 'b'));
}

TEST(Event, DestroyingTheEventInsideAHandlerEndsTheRound) {
    auto event = std::make_unique<Event<>>();
    std::string log;
    event->connect([&] {
        log += "a";
        event.reset();
        log += "b";
    });
    event->connect([&] { log += "never"; });
    const auto connection = event->connectScoped([&] { log += "never"; });
    (*event)();
    EXPECT_EQ(log, "ab");
}

TEST(Event, DestroyingTheEventInsideANestedRoundEndsBothRounds) {
    auto event = std::make_unique<Event<int>>();
    std::string log;
    event->connect([&](int depth) {
        log += std::to_string(depth);
        if (depth == 0) {
            (*event)(1);
        } else {
            event.reset();
        }
    });
    event->connect([&](int) { log += "never"; });
    (*event)(0);
    EXPECT_EQ(log, "01");
}

TEST(Event, MayBeFiredAgainInsideAHandler) {
    Event<int> event;
    std::string log;
    event.connect([&](int depth) {
        log += "a" + std::to_string(depth);
        if (depth < 2) {
            event(depth + 1);
        }
    });
    event.connect([&](int depth) { log += "b" + std::to_string(depth); });
    event(0);
    EXPECT_EQ(log, "a0a1a2b2b1b0");
}

TEST(Event, AHandlersExceptionEndsTheRoundAndLeavesTheEventUsable) {
    Event<bool> event;
    std::string log;
    event.connect([&](bool fail) {
        log += "a";
        if (fail) {
            throw std::runtime_error("refused");
        }
    });
    event.connect([&](bool) { log += "b"; });
    EXPECT_THROW(event(true), std::runtime_error);
    event(false);
    EXPECT_EQ(log, "aab");
}

}  // namespace
}  // namespace telvar::tests
