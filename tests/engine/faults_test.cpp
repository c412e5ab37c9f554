#include "tests/engine/serverfixture.h"

#include <chrono>
#include <functional>
#include <thread>

namespace pixmo {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Each fault as a client sees it.
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

TEST_F(Faults, AnswersThatAreNoPages) {
    struct Case {
        const char* fault;
        int status;
        std::string type;
        std::function<bool(const std::string& body)> holds;
    };
    const auto reads = [](const Viewer& viewer, const char* text) {
        return [=](const std::string& body) { return body.size() < 3072 && viewer.readable(body) == text; };
    };
    const auto sized = [](size_t least, size_t most) {
        return [=](const std::string& body) { return body.size() >= least && body.size() <= most; };
    };
    const std::vector<Case> cases = {
        {"empty:GP", 200, "text/plain", sized(0, 0)},
        {"http500:GP", 500, "text/plain", sized(1, 100)},
        {"http404:GP", 404, "text/plain", sized(1, 100)},
        {"http401:GP", 401, "text/plain", sized(1, 100)},
        {"http:GP=503", 503, "text/plain", sized(1, 100)},
        {"errtext:GP", 200, "text/plain",
         [](const std::string& body) {
             return body.starts_with("Error: the archive is offline") && body.size() > 900 &&
                    body.size() < 1100;
         }},
        {"er:GP", 200, "text/plain", reads(viewer_, "ER|2050|Engine|The engine was told to fail.")},
        {"wrongkey:GP", 200, "text/plain",
         [&](const std::string& body) {
             return body.size() % 2 == 0 && body.size() < 3072 && !viewer_.readable(body).starts_with("ER");
         }},
        {"garbage:GP=3", 200, "application/octet-stream", sized(8192, 8192)},
        {"html:GP", 200, "text/html",
         [](const std::string& body) { return body.starts_with("<!DOCTYPE html>") && body.size() == 4096; }},
        {"truncated:GP", 200, "application/octet-stream",
         [](const std::string& body) {
             auto half = sampleBytes(PageBytes);
             half.resize(PageBytes / 2);
             return restored(body, 1640) == half;
         }},
    };
    for (const Case& c : cases) {
        startWithContact(c.fault);
        const auto answer = http_->Get(page());
        ASSERT_TRUE(answer) << c.fault;
        EXPECT_EQ(answer->status, c.status) << c.fault;
        EXPECT_EQ(answer->get_header_value("Content-Type"), c.type) << c.fault;
        EXPECT_EQ(answer->get_header_value("Content-Length"), std::to_string(answer->body.size())) << c.fault;
        EXPECT_TRUE(c.holds(answer->body)) << c.fault << ": " << answer->body.size() << " bytes";
    }
}

TEST_F(Faults, GarbageIsTheSameForTheSameSeed) {
    startWithContact("garbage:GP=3@2\ngarbage:GP=4");
    const std::string first = http_->Get(page())->body;
    EXPECT_EQ(http_->Get(page())->body, first);
    EXPECT_NE(http_->Get(page())->body, first);
}

TEST_F(Faults, TextAnswersToo) {
    start("wrongkey:IC@1\ntruncated:PC@1\nerrtext:PC@2");
    const auto strange = get(viewer_.contact());
    ASSERT_TRUE(strange);
    EXPECT_EQ(strange->body.size(), 10U);
    EXPECT_NE(viewer_.readable(strange->body), "IC|OK");
    contact();
    const std::string half = get(viewer_.pageCount("1234"))->body;
    EXPECT_EQ(half.size(), 7U);
    EXPECT_EQ(viewer_.readable(half.substr(0, 6)), "PC|");
    EXPECT_TRUE(get(viewer_.pageCount("1234"))->body.starts_with("Error"));
    EXPECT_EQ(viewer_.readable(get(viewer_.pageCount("1234"))->body), "PC|OK|2");
}

TEST_F(Faults, AConnectionCutHalfWay) {
    struct Case {
        const char* fault;
        RawClient::End end;
    };
    for (const Case& c :
         {Case{"close:GP@1", RawClient::End::Closed}, Case{"reset:GP@1", RawClient::End::Reset}}) {
        startWithContact(c.fault);
        RawClient client(server_->port());
        client.get(page());
        auto end = RawClient::End::Closed;
        const std::string answer = client.receiveAll(end);
        EXPECT_EQ(end, c.end) << c.fault;
        EXPECT_NE(answer.find("Content-Length: " + std::to_string(PageBytes)), std::string::npos);
        EXPECT_EQ(bodyOf(answer).size(), PageBytes / 2) << c.fault;
        const auto whole = http_->Get(page());
        ASSERT_TRUE(whole) << c.fault;
        EXPECT_EQ(whole->body.size(), PageBytes);
    }
}

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

TEST_F(Faults, SlowAnswersTakeTheirTimeAndArriveWhole) {
    struct Case {
        const char* fault;
        milliseconds atLeast;
    };
    for (const Case& c : {Case{"delay:GP=80", milliseconds(80)}, Case{"drip:GP=200000", milliseconds(100)},
                          Case{"delay:GP=30\ndelay:ALL=30\ndrip:GP=400000", milliseconds(110)}}) {
        startWithContact(c.fault);
        std::vector<size_t> pieces;
        std::string body;
        const auto begin = steady_clock::now();
        const auto answer = http_->Get(page(), [&](const char* bytes, size_t count) {
            pieces.push_back(count);
            body.append(bytes, count);
            return true;
        });
        EXPECT_GE(steady_clock::now() - begin, c.atLeast) << c.fault;
        ASSERT_TRUE(answer) << c.fault;
        EXPECT_EQ(answer->get_header_value("Content-Length"), std::to_string(PageBytes));
        EXPECT_EQ(restored(body, 1640), sampleBytes(PageBytes)) << c.fault;
        EXPECT_TRUE(std::string(c.fault).find("drip") == std::string::npos || pieces.size() >= 3);
    }
    options_.delay = milliseconds(50);
    start();
    const auto begin = steady_clock::now();
    contact();
    EXPECT_GE(steady_clock::now() - begin, milliseconds(50));
}

TEST_F(Faults, RedirectsLeadNowhere) {
    startWithContact("redirect:GP@30");
    const auto answer = http_->Get(page());
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 302);
    EXPECT_EQ(answer->get_header_value("Location"), page());
    http_->set_follow_location(true);
    EXPECT_EQ(http_->Get(page()).error(), httplib::Error::ExceedRedirectCount);
    EXPECT_EQ(http_->Get(page())->body.size(), PageBytes);
}

TEST_F(Faults, TheFirstThatAnswersEndsTheList) {
    startWithContact("delay:GP=1\nhttp500:GP@1\nerrtext:GP@2\nreset:GP");
    EXPECT_EQ(http_->Get(page())->status, 500);
    EXPECT_TRUE(http_->Get(page())->body.starts_with("Error"));
    EXPECT_FALSE(http_->Get(page()));
}

} // namespace
} // namespace pixmo
