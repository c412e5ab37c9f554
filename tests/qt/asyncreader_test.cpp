#include "faces/qt/asyncreader.h"

#include "core/base/ansi.h"
#include "core/base/error.h"
#include "core/base/files.h"
#include "core/control/requestaddress.h"
#include "tests/qt/rawserver.h"
#include "tests/qt/waiting.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace pixmo::qt {
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

class AsyncReaderTest : public testing::Test {
protected:
    AsyncReaderTest() { reader->setListener(&listener); }

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

    const AsyncProperty& completion(size_t index = 0) {
        EXPECT_TRUE(waitFor([&] { return listener.completed.size() > index; }));
        listener.completed.resize(std::max(listener.completed.size(), index + 1));
        return listener.completed[index];
    }

    const AsyncProperty& answerTo(const AsyncRequest& asked) {
        const size_t index = listener.completed.size();
        reader->AsyncRead(asked);
        EXPECT_EQ(listener.completed.size(), index) << "called from inside of AsyncRead";
        return completion(index);
    }

    QTemporaryDir folder;
    std::filesystem::path file = folder.filePath(QStringLiteral("page.dat")).toStdString();
    RawServer server;
    Listener listener;
    std::unique_ptr<AsyncReader> reader = std::make_unique<AsyncReader>();
};

std::string textOf(const AsyncProperty& record) {
    return {record.Bytes.begin(), record.Bytes.end()};
}

TEST_F(AsyncReaderTest, AddressesTravelByteForByte) {
    server.answerWithBody("fine");
    std::string all;
    for (int code = 1; code < 256; ++code)
        all.push_back(static_cast<char>(code));
    const std::string target =
        requestAddress(server.address("/a%20b/en~gine.asp"), "IC\u00B7" + fromAnsi(all)).target;
    ASSERT_THAT(target, HasSubstr("?IC%B7"));
    EXPECT_EQ(textOf(answerTo(request(target))), "fine");
    const std::string path = target.substr(server.address("").size());
    EXPECT_EQ(server.requests().at(0).left(server.requests().at(0).indexOf('\r')).toStdString(),
              "GET " + path + " HTTP/1.1");
}

TEST_F(AsyncReaderTest, AsksTheServerItselfOverOneConnection) {
    server.answerWith("HTTP/1.1 200 OK\r\nCache-Control: max-age=3600\r\nContent-Length: 2\r\n\r\nOK");
    for (int turn = 0; turn < 3; ++turn)
        EXPECT_EQ(answerTo(request(server.address())).StatusCode, 6);
    ASSERT_EQ(server.requests().size(), 3);
    EXPECT_EQ(server.connections(), 1);
    EXPECT_TRUE(server.requests().at(0).toLower().contains("cache-control: no-cache"));
}

TEST_F(AsyncReaderTest, AsksOnceMoreWhenAConnectionDiesBeforeTheAnswer) {
    server.answerWith("", RawServer::Then::Reset);
    reader->AsyncRead(request(server.address()));
    ASSERT_TRUE(waitFor([&] { return !server.requests().empty(); }));
    server.answerWithBody("fine");
    EXPECT_EQ(textOf(completion()), "fine");
}

TEST_F(AsyncReaderTest, FollowsRedirections) {
    RawServer other;
    other.answerWithBody("from elsewhere");
    server.answerWith("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " +
                      QByteArray::fromStdString(other.address()) + "\r\n\r\n");
    EXPECT_EQ(textOf(answerTo(request(server.address()))), "from elsewhere");
}

struct BadAnswer {
    const char* name;
    QByteArray answer;
    RawServer::Then then;
    const char* status;
};

void PrintTo(const BadAnswer& answer, std::ostream* out) {
    *out << answer.name;
}

class BadAnswers : public AsyncReaderTest, public testing::WithParamInterface<BadAnswer> {};

TEST_P(BadAnswers, CompleteWithAReasonAndNoFile) {
    server.answerWith(GetParam().answer, GetParam().then);
    reader->limits().stallMilliseconds = 300;
    reader->limits().fileBytes = 1000;
    const AsyncProperty& record = answerTo(request(server.address("/e?x"), AsyncType::File));
    EXPECT_EQ(record.StatusCode, 0);
    EXPECT_THAT(record.Status, HasSubstr(GetParam().status));
    EXPECT_TRUE(record.File.empty());
    EXPECT_FALSE(std::filesystem::exists(file));
}

using Then = RawServer::Then;
INSTANTIATE_TEST_SUITE_P(
    Transfers, BadAnswers,
    testing::Values(
        BadAnswer{"status500", "HTTP/1.1 500 Internal Server Error\r\nContent-Length: 4\r\n\r\nOops",
                  Then::KeepOpen, "The server answered 500 Internal Server Error."},
        BadAnswer{"status404", "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n", Then::KeepOpen,
                  "The server answered 404 Not Found."},
        BadAnswer{
            "status401",
            "HTTP/1.1 401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"x\"\r\nContent-Length: 0\r\n\r\n",
            Then::KeepOpen, "The server answered 401 Unauthorized."},
        BadAnswer{"status304", "HTTP/1.1 304 Not Modified\r\n\r\n", Then::KeepOpen,
                  "The server answered 304 Not Modified."},
        BadAnswer{"shortBody", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf of it", Then::Close,
                  "The answer ended after 10 of 100 bytes."},
        BadAnswer{"shortChunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n64\r\nhalf of it",
                  Then::Close, "The server closed the connection."},
        BadAnswer{"resetInBody", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf of it", Then::Reset, ""},
        BadAnswer{"nothing", "", Then::Close, "The server closed the connection."},
        BadAnswer{"notHttp", "SSH-2.0-OpenSSH\r\n\r\n", Then::Close, ""},
        BadAnswer{"silence", "", Then::KeepOpen, "The server has sent nothing for 0.3 seconds."},
        BadAnswer{"silenceInBody", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf of it", Then::KeepOpen,
                  "The server has sent nothing for 0.3 seconds."},
        BadAnswer{"redirectLoop", "HTTP/1.1 302 Found\r\nLocation: /e?x\r\nContent-Length: 0\r\n\r\n",
                  Then::KeepOpen, "The server redirects without end."},
        BadAnswer{"tooLarge", "HTTP/1.1 200 OK\r\nContent-Length: 2000\r\n\r\n" + QByteArray(2000, 'x'),
                  Then::KeepOpen, "The answer is larger than"}),
    [](const auto& answer) { return std::string(answer.param.name); });

TEST_F(AsyncReaderTest, TellsRefusedConnectionsLater) {
    const std::string deserted = RawServer().address();
    const AsyncProperty& record = answerTo(request(deserted));
    EXPECT_EQ(record.StatusCode, 0);
    EXPECT_EQ(record.Status, "The server refused the connection.");
}

TEST_F(AsyncReaderTest, RefusesAddressesThatAreNone) {
    for (const std::string address :
         {"", "engine", "ftp://host/engine", "http://", "http:///engine", "file:///etc/passwd",
          "http://two words/engine", "javascript:alert(1)"}) {
        try {
            reader->AsyncRead(request(address + "?IC%B7"));
            ADD_FAILURE() << address << " was taken";
        } catch (const Error& error) {
            EXPECT_EQ(error.Number, 5);
            EXPECT_THAT(error.Description, HasSubstr("'" + address + "'"));
        }
    }
}

TEST_F(AsyncReaderTest, WritesFilesThatOnlyTheUserReads) {
    const QByteArray page(300'000, 'p');
    server.answerWithBody(page);
    const AsyncProperty& record = answerTo(request(server.address(), AsyncType::File));
    EXPECT_EQ(record.StatusCode, 6);
    EXPECT_EQ(record.File, file);
    EXPECT_EQ(record.BytesRead, 300'000);
    EXPECT_EQ(record.BytesMax, 300'000);
    EXPECT_EQ(readFile(file), std::vector<uint8_t>(300'000, 'p'));
    struct stat facts {};
    stat(file.c_str(), &facts);
    EXPECT_EQ(facts.st_mode & 0777U, 0600U);
}

TEST_F(AsyncReaderTest, LimitsTextAnswers) {
    server.answerWithBody(QByteArray((1 << 20) + 1, 'x'));
    EXPECT_EQ(answerTo(request(server.address())).Status, "The answer is larger than 1 MiB.");
}

TEST_F(AsyncReaderTest, CancelledTransfersSayNothingAndLeaveNoFile) {
    server.answerWith("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf of it");
    reader->AsyncRead(request(server.address(), AsyncType::File));
    ASSERT_TRUE(waitFor([&] { return !listener.progress.empty(); }));
    EXPECT_EQ(listener.progress[0].BytesRead, 10);
    EXPECT_EQ(listener.progress[0].BytesMax, 100);
    reader->CancelAsyncRead("T");
    reader->CancelAsyncRead("unknown");
    EXPECT_FALSE(std::filesystem::exists(file));
    server.answerWithBody("next");
    EXPECT_EQ(textOf(answerTo(request(server.address()))), "next");
    EXPECT_EQ(listener.completed.size(), 1U);
}

// Both end in the same round of the event loop; the report of the one cancels the other, whose end is not
// reported yet.
TEST_F(AsyncReaderTest, CancelledBetweenItsEndAndItsReport) {
    server.answerWith("");
    reader->limits().stallMilliseconds = 50;
    listener.onComplete = [this] {
        reader->CancelAsyncRead("A");
        reader->CancelAsyncRead("B");
    };
    reader->AsyncRead(request(server.address(), AsyncType::ByteArray, "A"));
    reader->AsyncRead(request(server.address(), AsyncType::ByteArray, "B"));
    ASSERT_TRUE(waitFor([&] { return !listener.completed.empty(); }));
    QTest::qWait(100);
    EXPECT_EQ(listener.completed.size(), 1U);
}

TEST_F(AsyncReaderTest, ATransferReplacesTheOneOfItsName) {
    server.answerWith("");
    reader->AsyncRead(request(server.address("/old")));
    ASSERT_TRUE(waitFor([&] { return server.requests().size() == 1; }));
    server.answerWithBody("new");
    EXPECT_EQ(textOf(answerTo(request(server.address("/new")))), "new");
    EXPECT_EQ(listener.completed.size(), 1U);
}

TEST_F(AsyncReaderTest, MayEndInAnyOfItsReports) {
    server.answerWithBody("fine");
    listener.onComplete = [&] { reader.reset(); };
    completion((reader->AsyncRead(request(server.address())), 0));
    EXPECT_FALSE(reader);

    reader = std::make_unique<AsyncReader>();
    reader->setListener(&listener);
    server.answerWith("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf of it");
    listener.onProgress = [&] { reader.reset(); };
    reader->AsyncRead(request(server.address(), AsyncType::File));
    EXPECT_TRUE(waitFor([&] { return !reader; }));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(AsyncReaderTest, GoesThroughTheHostsAccessManagerWhileThereIsOne) {
    class Counter : public QNetworkAccessManager {
    public:
        int requests = 0;

    protected:
        QNetworkReply* createRequest(Operation operation, const QNetworkRequest& asked,
                                     QIODevice* data) override {
            ++requests;
            return QNetworkAccessManager::createRequest(operation, asked, data);
        }
    };
    server.answerWithBody("fine");
    auto network = std::make_unique<Counter>();
    reader->setNetworkAccessManager(network.get());
    EXPECT_EQ(answerTo(request(server.address())).StatusCode, 6);
    EXPECT_EQ(network->requests, 1);
    // The host's end of its manager in mid-transfer is its own business, but it must not be ours.
    server.answerWith("");
    reader->AsyncRead(request(server.address()));
    network.reset();
    server.answerWithBody("fine");
    EXPECT_EQ(answerTo(request(server.address(), AsyncType::ByteArray, "U")).StatusCode, 6);
}

} // namespace
} // namespace pixmo::qt
