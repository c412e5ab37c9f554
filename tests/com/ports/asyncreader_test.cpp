#include "faces/com/ports/asyncreader.h"

#include "core/base/ansi.h"
#include "core/base/error.h"
#include "core/base/files.h"
#include "core/control/requestaddress.h"
#include "faces/com/ports/scratchfolder.h"
#include "tests/com/ports/rawserver.h"
#include "tests/com/ports/waiting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo::com {
namespace {

using testing::HasSubstr;

class Listener : public AsyncReadListener {
public:
    void AsyncReadComplete(const AsyncProperty& record) override {
        completed.push_back(record);
        if (onComplete)
            onComplete();
    }
    void AsyncReadProgress(const AsyncProperty& record) override {
        progress.push_back(record);
        if (onProgress)
            onProgress();
    }

    std::vector<AsyncProperty> completed;
    std::vector<AsyncProperty> progress;
    std::function<void()> onComplete;
    std::function<void()> onProgress;
};

class ComAsyncReader : public testing::Test {
protected:
    ComAsyncReader() { reader->setListener(&listener); }

    AsyncRequest request(const std::string& target, AsyncType type = AsyncType::ByteArray,
                         const std::string& name = "T") const {
        AsyncRequest request;
        request.Target = target;
        request.Type = type;
        request.PropertyName = name;
        if (type == AsyncType::File)
            request.File = file;
        return request;
    }

    const AsyncProperty& answerTo(const AsyncRequest& asked) {
        const size_t index = listener.completed.size();
        reader->AsyncRead(asked);
        EXPECT_EQ(listener.completed.size(), index) << "called from inside of AsyncRead";
        EXPECT_TRUE(waitFor([&] { return listener.completed.size() > index; }));
        listener.completed.resize(std::max(listener.completed.size(), index + 1));
        return listener.completed[index];
    }

    ScratchFolder folder;
    std::filesystem::path file = folder.path() / "page.dat";
    RawServer server;
    Listener listener;
    std::unique_ptr<AsyncReader> reader = std::make_unique<AsyncReader>();
};

std::string textOf(const AsyncProperty& record) {
    return {record.Bytes.begin(), record.Bytes.end()};
}

TEST_F(ComAsyncReader, AddressesTravelByteForByte) {
    server.answerWithBody("fine");
    std::string all;
    for (int code = 1; code < 256; ++code)
        all.push_back(static_cast<char>(code));
    const std::string target =
        requestAddress(server.address("/a%20b/en~gine.asp"), "IC\u00B7" + fromAnsi(all)).target;
    const AsyncProperty& record = answerTo(request(target));
    EXPECT_EQ(textOf(record), "fine") << record.Status;
    const std::string path = target.substr(server.address("").size());
    const std::string head = server.requests().at(0);
    EXPECT_EQ(head.substr(0, head.find('\r')), "GET " + path + " HTTP/1.1");
    EXPECT_THAT(head, HasSubstr("User-Agent: " + userAgent()));
    EXPECT_THAT(head, HasSubstr("no-cache"));
}

TEST_F(ComAsyncReader, AsksTheServerItselfEveryTime) {
    server.answerWith("HTTP/1.1 200 OK\r\nCache-Control: max-age=3600\r\nContent-Length: 2\r\n\r\nOK");
    for (int turn = 0; turn < 3; ++turn)
        EXPECT_EQ(answerTo(request(server.address())).StatusCode, 6);
    EXPECT_EQ(server.requests().size(), 3U);
}

TEST_F(ComAsyncReader, FollowsRedirections) {
    RawServer other;
    other.answerWithBody("from elsewhere");
    server.answerWith("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + other.address() + "\r\n\r\n");
    EXPECT_EQ(textOf(answerTo(request(server.address()))), "from elsewhere");
}

using Then = RawServer::Then;

struct BadAnswer {
    const char* name;
    std::string answer;
    Then then;
    const char* status;
};

void PrintTo(const BadAnswer& answer, std::ostream* out) {
    *out << answer.name;
}

class ComBadAnswers : public ComAsyncReader, public testing::WithParamInterface<BadAnswer> {};

TEST_P(ComBadAnswers, CompleteWithAReasonAndNoFile) {
    server.answerWith(GetParam().answer, GetParam().then);
    reader->limits().stallMilliseconds = 300;
    reader->limits().fileBytes = 1000;
    const AsyncProperty& record = answerTo(request(server.address("/e?x"), AsyncType::File));
    EXPECT_EQ(record.StatusCode, 0);
    EXPECT_THAT(record.Status, HasSubstr(GetParam().status));
    EXPECT_TRUE(record.File.empty());
    EXPECT_FALSE(std::filesystem::exists(file));
}

const std::string Half = "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf of it";

// What is lost on the way is told in different words: the network beneath does not always tell of it.
INSTANTIATE_TEST_SUITE_P(
    Transfers, ComBadAnswers,
    testing::Values(
        BadAnswer{"status500", "HTTP/1.1 500 Internal Server Error\r\nContent-Length: 4\r\n\r\nOops",
                  Then::KeepOpen, "The server answered 500 Internal Server Error."},
        BadAnswer{"status404", "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n", Then::KeepOpen,
                  "The server answered 404 Not Found."},
        BadAnswer{"status401",
                  "HTTP/1.1 401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"x\"\r\n"
                  "Content-Length: 0\r\n\r\n",
                  Then::KeepOpen, "The server answered 401 Unauthorized."},
        BadAnswer{"status304", "HTTP/1.1 304 Not Modified\r\n\r\n", Then::KeepOpen,
                  "The server answered 304 Not Modified."},
        BadAnswer{"shortBody", Half, Then::Close, "The answer ended after 10 of 100 bytes."},
        BadAnswer{"resetInBody", Half, Then::Reset, "The "},
        BadAnswer{"nothing", "", Then::Close, "The server"},
        BadAnswer{"silence", "", Then::KeepOpen, "The server has sent nothing for 0.3 seconds."},
        BadAnswer{"silenceInBody", Half, Then::KeepOpen, "The server has sent nothing for 0.3 seconds."},
        BadAnswer{"redirectLoop", "HTTP/1.1 302 Found\r\nLocation: /e?x\r\nContent-Length: 0\r\n\r\n",
                  Then::KeepOpen, "The server redirects without end."},
        BadAnswer{"tooLarge", "HTTP/1.1 200 OK\r\nContent-Length: 2000\r\n\r\n" + std::string(2000, 'x'),
                  Then::KeepOpen, "The answer is larger than"}),
    [](const auto& answer) { return std::string(answer.param.name); });

TEST_F(ComAsyncReader, TellsFailedConnectionsLater) {
    const std::string deserted = RawServer().address();
    EXPECT_THAT(answerTo(request(deserted)).Status, HasSubstr("The server "));
    EXPECT_EQ(listener.completed.at(0).StatusCode, 0);
}

TEST_F(ComAsyncReader, RefusesAddressesThatAreNone) {
    for (const std::string address :
         {"", "engine", "ftp://host/engine", "http://", "http:///engine", "file:///c:/windows/win.ini",
          "\\\\server\\share\\page", "http://two words/engine", "javascript:alert(1)"}) {
        try {
            reader->AsyncRead(request(address + "?IC%B7"));
            ADD_FAILURE() << address << " was taken";
        } catch (const Error& error) {
            EXPECT_EQ(error.Number, 5);
            EXPECT_THAT(error.Description, HasSubstr("'" + address + "'"));
        }
    }
}

TEST_F(ComAsyncReader, WritesFilesAndTellsTheirSize) {
    server.answerWithBody(std::string(300'000, 'p'));
    const AsyncProperty& record = answerTo(request(server.address(), AsyncType::File));
    EXPECT_EQ(record.StatusCode, 6);
    EXPECT_EQ(record.File, file);
    EXPECT_EQ(record.BytesRead, 300'000);
    EXPECT_EQ(record.BytesMax, 300'000);
    EXPECT_EQ(readFile(file), std::vector<uint8_t>(300'000, 'p'));
}

/// The network tells of large pieces only.
const std::string LargeHalf = "HTTP/1.1 200 OK\r\nContent-Length: 400000\r\n\r\n" + std::string(200'000, 'x');

TEST_F(ComAsyncReader, CancelledTransfersSayNothingAndLeaveNoFile) {
    server.answerWith(LargeHalf);
    reader->AsyncRead(request(server.address(), AsyncType::File));
    ASSERT_TRUE(waitFor([&] { return !listener.progress.empty(); }));
    EXPECT_GT(listener.progress[0].BytesRead, 0);
    EXPECT_EQ(listener.progress[0].BytesMax, 400'000);
    reader->CancelAsyncRead("T");
    reader->CancelAsyncRead("unknown");
    EXPECT_FALSE(std::filesystem::exists(file));
    // In the states before: just started, and waiting for the head.
    reader->AsyncRead(request(server.address(), AsyncType::File));
    reader->CancelAsyncRead("T");
    server.answerWith("");
    const size_t before = server.requests().size();
    reader->AsyncRead(request(server.address(), AsyncType::File));
    ASSERT_TRUE(waitFor([&] { return server.requests().size() > before; }));
    reader->CancelAsyncRead("T");
    server.answerWithBody("next");
    EXPECT_EQ(textOf(answerTo(request(server.address()))), "next");
    EXPECT_EQ(listener.completed.size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(ComAsyncReader, CancelledBetweenItsEndAndItsReport) {
    server.answerWith("");
    reader->limits().stallMilliseconds = 50;
    listener.onComplete = [this] {
        reader->CancelAsyncRead("A");
        reader->CancelAsyncRead("B");
    };
    reader->AsyncRead(request(server.address(), AsyncType::ByteArray, "A"));
    reader->AsyncRead(request(server.address(), AsyncType::ByteArray, "B"));
    ASSERT_TRUE(waitFor([&] { return !listener.completed.empty(); }));
    EXPECT_FALSE(waitFor([&] { return listener.completed.size() > 1; }, 200));
}

TEST_F(ComAsyncReader, ATransferReplacesTheOneOfItsName) {
    server.answerWith("");
    reader->AsyncRead(request(server.address("/old")));
    ASSERT_TRUE(waitFor([&] { return server.requests().size() == 1; }));
    server.answerWithBody("new");
    EXPECT_EQ(textOf(answerTo(request(server.address("/new")))), "new");
    EXPECT_EQ(listener.completed.size(), 1U);
}

TEST_F(ComAsyncReader, MayEndInAnyOfItsReports) {
    server.answerWithBody("fine");
    listener.onComplete = [&] { reader.reset(); };
    answerTo(request(server.address()));
    EXPECT_FALSE(reader);

    reader = std::make_unique<AsyncReader>();
    reader->setListener(&listener);
    server.answerWith(LargeHalf);
    listener.onProgress = [&] { reader.reset(); };
    reader->AsyncRead(request(server.address(), AsyncType::File));
    EXPECT_TRUE(waitFor([&] { return !reader; }));
    EXPECT_FALSE(std::filesystem::exists(file));
}

} // namespace
} // namespace pixmo::com
