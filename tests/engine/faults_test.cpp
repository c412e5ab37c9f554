#include "tests/engine/serverfixture.h"

#include <thread>

namespace pixmo {
namespace {

/// What each fault does to a viewer, the behaviour of every face shows.
class Faults : public ServerTest {
protected:
    void startWithContact(const std::string& faults) {
        start(faults);
        contact();
    }

    void awaitRequests(RequestKind kind, uint64_t count) const {
        while (server_->requests(kind) < count)
            std::this_thread::yield();
    }
};

TEST_F(Faults, AStalledRequestHoldsUpNobody) {
    startWithContact("stall:GP@70");
    std::vector<std::unique_ptr<RawClient>> stalled;
    for (int i = 0; i < 40; ++i) {
        stalled.push_back(std::make_unique<RawClient>(server_->port()));
        stalled.back()->get(page());
    }
    awaitRequests(RequestKind::GetPage, 40);
    EXPECT_EQ(viewer_.readable(get(viewer_.pageCount("1234"))->body), "PC|OK|2");
    for (const auto& client : stalled)
        EXPECT_FALSE(client->hasData());
    // Threads of clients that left are free again.
    stalled.clear();
    for (int i = 0; i < 30; ++i) {
        stalled.push_back(std::make_unique<RawClient>(server_->port()));
        stalled.back()->get(page());
    }
    awaitRequests(RequestKind::GetPage, 70);
    EXPECT_EQ(http_->Get(page())->body.size(), PageBytes);
    server_.reset();
    auto end = RawClient::End::Reset;
    EXPECT_EQ(stalled.front()->receiveAll(end), "");
    EXPECT_EQ(end, RawClient::End::Closed);
}

TEST_F(Faults, StoppingEndsDripsDelaysAndIdleConnections) {
    startWithContact("delay:GP=3600000@1\ndrip:GP=10");
    RawClient delayed(server_->port());
    delayed.get(page());
    awaitRequests(RequestKind::GetPage, 1);
    RawClient dripping(server_->port());
    dripping.get(page());
    dripping.receiveUntil("\r\n\r\n");
    const RawClient idle(server_->port());
    server_.reset();
    auto end = RawClient::End::Reset;
    EXPECT_EQ(delayed.receiveAll(end), "");
    EXPECT_LT(dripping.receiveAll(end).size(), PageBytes);
}

TEST_F(Faults, TheFirstThatAnswersEndsTheList) {
    startWithContact("delay:GP=1\nhttp500:GP@1\nerrtext:GP@2\nreset:GP");
    EXPECT_EQ(http_->Get(page())->status, 500);
    EXPECT_TRUE(http_->Get(page())->body.starts_with("Error"));
    EXPECT_FALSE(http_->Get(page()));
}

} // namespace
} // namespace pixmo
