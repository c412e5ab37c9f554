#include "core/control/download.h"

#include "core/base/error.h"
#include "core/base/files.h"
#include "faces/scripted/scriptedports.h"

#include <functional>
#include <gtest/gtest.h>

namespace pixmo {
namespace {

class DownloadTest : public testing::Test {
protected:
    AsyncRequest request(const std::string& target, AsyncType type = AsyncType::ByteArray) const {
        return {target, type, "T", AsyncReadForceUpdate, type == AsyncType::File ? file : ""};
    }

    static void feed(Download& download, size_t count) {
        download.received(std::vector<uint8_t>(count, uint8_t{'x'}));
    }

    scripted::ScratchFolder folder;
    std::filesystem::path file = folder.path() / "page.dat";
    TransferLimits limits{500, 1000, 100};
};

struct Ending {
    const char* status; ///< of the completion record
    std::function<void(Download&)> events;
};

TEST_F(DownloadTest, EveryEndHasItsSentence) {
    using Problem = NetworkProblem;
    const auto answered = [](Download& download, int32_t status, int64_t size, size_t count) {
        download.answered(status, status == 404 ? "Not Found" : "", size);
        feed(download, count);
    };
    const std::vector<Ending> endings = {
        {"engine.test", [&](auto& d) { answered(d, 200, 10, 10), d.ended(Problem::None); }},
        {"engine.test", [&](auto& d) { answered(d, 200, -1, 10), d.ended(Problem::None, "Unknown error"); }},
        {"The answer ended after 10 of 20 bytes.",
         [&](auto& d) { answered(d, 200, 20, 10), d.ended(Problem::None); }},
        {"The answer ended after 10 of 20 bytes.",
         [&](auto& d) { answered(d, 200, 20, 10), d.ended(Problem::Closed); }},
        {"The server closed the connection.", [](auto& d) { d.ended(Problem::Closed); }},
        {"The server answered 404 Not Found.",
         [&](auto& d) { answered(d, 404, 20, 10), d.ended(Problem::Other, "x"); }},
        {"The server answered 404 Not Found.",
         [&](auto& d) { answered(d, 404, 20, 10), d.ended(Problem::NotFound); }},
        {"The server closed the connection.", [](auto& d) { d.ended(Problem::None); }},
        {"The server closed the connection.", [](auto& d) { feed(d, 10), d.ended(Problem::NoAnswer); }},
        {"The server's answer is malformed.", [](auto& d) { feed(d, 10), d.ended(Problem::None); }},
        {"The server answered 304.", [&](auto& d) { answered(d, 304, -1, 0), d.ended(Problem::None); }},
        {"a certificate", [](auto& d) { d.ended(Problem::Other, "a certificate"); }},
        {"The answer is larger than 0.000095 MiB.", [&](auto& d) { answered(d, 200, -1, 101); }},
        {"The server has sent nothing for 0.5 seconds.",
         [](auto& d) { d.stalled(), d.ended(Problem::Refused); }},
        {"The server redirects to an insecure address.",
         [](auto& d) { d.redirected("http://engine.test/other"); }},
        {"The server redirects without end.",
         [](auto& d) {
             for (int turn = 0; turn <= Download::MostRedirects; ++turn) {
                 EXPECT_FALSE(d.failed()) << turn;
                 d.redirected("https://engine.test/next");
             }
         }},
    };
    for (const Ending& ending : endings) {
        Download download(request("https://me@engine.test:81/page?IC"), limits);
        ending.events(download);
        const AsyncProperty record = download.deliver();
        EXPECT_EQ(record.Status, ending.status);
        EXPECT_EQ(record.StatusCode == 6, record.Status == std::string("engine.test"));
        EXPECT_EQ(record.Bytes.empty(), record.StatusCode == 0);
    }
}

TEST_F(DownloadTest, AFileIsDeliveredOrRemoved) {
    {
        Download download(request("http://e/p", AsyncType::File), limits);
        download.answered(200, "OK", -1);
        feed(download, 10);
        download.ended(NetworkProblem::None);
        EXPECT_EQ(download.deliver().File, file);
    }
    EXPECT_EQ(readFile(file).size(), 10U) << "it is the listener's";
    for (const size_t bytes : {1001U, 10U}) {
        {
            Download download(request("http://e/p", AsyncType::File), limits);
            feed(download, bytes);
            if (bytes > 1000) {
                EXPECT_TRUE(download.deliver().File.empty());
            }
        }
        EXPECT_FALSE(std::filesystem::exists(file));
    }
}

TEST_F(DownloadTest, OnlyServersAreAsked) {
    for (const char* target : {"", "engine", "ftp://host/e", "http://", "http:///e", "file:///etc/passwd",
                               "http://two words/e", "http://:80/e", "\\\\server\\share", "http://h/\u00E9"})
        EXPECT_THROW(Download(request(target), limits), Error) << target;
    for (const char* target : {"HTTP://h/e?x", "https://u:p@[::1]:8443/e", "http://h"})
        EXPECT_NO_THROW(Download(request(target), limits)) << target;
}

} // namespace
} // namespace pixmo
