#include "core/base/event.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace pixmo {
namespace {

TEST(Event, HandlersMayDisconnectAndConnectWhileItRuns) {
    Event<int> event;
    std::string calls;
    size_t first = 0;
    size_t third = 0;
    first = event.connect([&](int) {
        calls += '1';
        event.disconnect(first);
        event.disconnect(third);
        event.connect([&](int) { calls += '4'; });
    });
    event.connect([&](int) { calls += '2'; });
    third = event.connect([&](int) { calls += '3'; });
    event.raise(0);
    EXPECT_EQ(calls, "12");
    event.raise(0);
    EXPECT_EQ(calls, "1224");
}

TEST(Event, MayEndInItsOwnHandler) {
    auto event = std::make_unique<Event<>>();
    int calls = 0;
    event->connect([&] { event.reset(); });
    event->connect([&] { ++calls; });
    event->raise();
    EXPECT_EQ(event, nullptr);
    EXPECT_EQ(calls, 1);
}

TEST(Event, ReferencesReachTheRaiser) {
    Event<bool&> event;
    event.connect([](bool& cancel) { cancel = true; });
    bool cancel = false;
    event.raise(cancel);
    EXPECT_TRUE(cancel);
}

} // namespace
} // namespace pixmo
