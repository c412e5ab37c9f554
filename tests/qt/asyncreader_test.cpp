#include "faces/qt/ports/asyncreader.h"

#include "tests/qt/waiting.h"
#include "tests/transfers/readertest.h"

#include <sys/stat.h>

// What every face's reader does, and what only Qt's network can tell or be asked.
namespace pixmo {

transfers::ReaderOfFace transfers::makeReader() {
    auto reader = std::make_unique<qt::AsyncReader>();
    TransferLimits& limits = reader->limits();
    return {std::move(reader), &limits};
}

bool transfers::waitFor(const std::function<bool()>& condition, int milliseconds) {
    return qt::waitFor(condition, milliseconds);
}

namespace qt {
namespace {

using transfers::BadAnswer;
using transfers::BadAnswers;
using Reply = transfers::RawServer::Reply;
using Then = transfers::RawServer::Then;
using QtReader = transfers::ReaderTest;

INSTANTIATE_TEST_SUITE_P(
    OfQt, BadAnswers,
    testing::Values(BadAnswer{"nothing", {"", Then::Close}, "The server closed the connection."},
                    BadAnswer{"notHttp", {"SSH-2.0-OpenSSH\r\n\r\n", Then::Close}, ""}),
    transfers::NameOfAnswer);

TEST_F(QtReader, TellsRefusedConnections) {
    const std::string deserted = transfers::RawServer().address();
    EXPECT_EQ(answerTo(request(deserted)).Status, "The server refused the connection.");
}

TEST_F(QtReader, KeepsItsConnection) {
    server.answerWithBody("fine");
    for (int turn = 0; turn < 3; ++turn)
        answerTo(request(server.address()));
    EXPECT_EQ(server.connections(), 1U);
}

TEST_F(QtReader, AsksOnceMoreWhenAConnectionDiesBeforeTheAnswer) {
    server.answerBy([asked = 0](const std::string&) mutable {
        return asked++ == 0 ? Reply{"", Then::Reset}
                            : Reply{"HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nfine"};
    });
    EXPECT_EQ(transfers::textOf(answerTo(request(server.address()))), "fine");
}

TEST_F(QtReader, WritesFilesThatOnlyTheUserReads) {
    server.answerWithBody("page");
    EXPECT_EQ(answerTo(request(server.address(), AsyncType::File)).StatusCode, 6);
    struct stat facts {};
    stat(file.c_str(), &facts);
    EXPECT_EQ(facts.st_mode & 0777U, 0600U);
}

TEST_F(QtReader, GoesThroughTheHostsAccessManagerWhileThereIsOne) {
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
    static_cast<AsyncReader&>(*reader).setNetworkAccessManager(network.get());
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
} // namespace qt
} // namespace pixmo
