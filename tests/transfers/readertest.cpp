#include "tests/transfers/readertest.h"

#include "core/base/ansi.h"
#include "core/base/error.h"
#include "core/base/files.h"
#include "core/control/requestaddress.h"

#include <algorithm>

namespace pixmo::transfers {

using testing::HasSubstr;
using Then = RawServer::Then;

namespace {

constexpr int HalfLength = 200'000;

std::string head(const std::string& status, const std::string& fields) {
    return "HTTP/1.1 " + status + "\r\n" + fields + "\r\n\r\n";
}

/// The first line of a request.
std::string firstLine(const std::string& request) {
    return request.substr(0, request.find('\r'));
}

} // namespace

std::string textOf(const AsyncProperty& record) {
    return {record.Bytes.begin(), record.Bytes.end()};
}

std::string halfAnAnswer() {
    return head("200 OK", "Content-Length: " + std::to_string(2 * HalfLength)) + std::string(HalfLength, 'x');
}

ReaderTest::ReaderTest()
    : file(std::filesystem::temp_directory_path() /
           ("page-" + std::to_string(reinterpret_cast<uintptr_t>(this)) + ".dat")) {
    makeReaderAgain();
}

ReaderTest::~ReaderTest() {
    std::filesystem::remove(file);
}

void ReaderTest::makeReaderAgain() {
    ReaderOfFace made = makeReader();
    reader = std::move(made.reader);
    limits = made.limits;
    reader->setListener(this);
}

AsyncRequest ReaderTest::request(const std::string& target, AsyncType type, const std::string& name) const {
    AsyncRequest request;
    request.Target = target;
    request.Type = type;
    request.PropertyName = name;
    if (type == AsyncType::File)
        request.File = file;
    return request;
}

const AsyncProperty& ReaderTest::completion(size_t index) {
    EXPECT_TRUE(waitFor([&] { return completed.size() > index; }));
    completed.resize(std::max(completed.size(), index + 1));
    return completed[index];
}

const AsyncProperty& ReaderTest::answerTo(const AsyncRequest& asked) {
    const size_t index = completed.size();
    reader->AsyncRead(asked);
    EXPECT_EQ(completed.size(), index) << "called from inside of AsyncRead";
    return completion(index);
}

void ReaderTest::AsyncReadComplete(const AsyncProperty& record) {
    completed.push_back(record);
    if (onComplete)
        onComplete();
}

void ReaderTest::AsyncReadProgress(const AsyncProperty& record) {
    progress.push_back(record);
    if (onProgress)
        onProgress();
}

TEST_F(ReaderTest, AddressesTravelByteForByte) {
    server.answerWithBody("fine");
    std::string all;
    for (int code = 1; code < 256; ++code)
        all.push_back(static_cast<char>(code));
    const std::string target =
        requestAddress(server.address("/a%20b/en~gine.asp"), "IC\u00B7" + fromAnsi(all)).target;
    ASSERT_THAT(target, HasSubstr("?IC%B7"));
    EXPECT_EQ(textOf(answerTo(request(target))), "fine");
    EXPECT_EQ(firstLine(server.requests().at(0)),
              "GET " + target.substr(server.address("").size()) + " HTTP/1.1");
}

TEST_F(ReaderTest, AsksTheServerItselfEveryTime) {
    server.answerWith(head("200 OK", "Cache-Control: max-age=3600\r\nContent-Length: 2") + "OK");
    for (int turn = 0; turn < 3; ++turn)
        EXPECT_EQ(answerTo(request(server.address())).StatusCode, 6);
    ASSERT_EQ(server.requests().size(), 3U);
    EXPECT_THAT(server.requests().at(0), HasSubstr("no-cache"));
}

TEST_F(ReaderTest, FollowsRedirections) {
    RawServer other;
    other.answerWithBody("from elsewhere");
    server.answerWith(head("302 Found", "Content-Length: 0\r\nLocation: " + other.address()));
    EXPECT_EQ(textOf(answerTo(request(server.address()))), "from elsewhere");
}

TEST_P(BadAnswers, CompleteWithAReasonAndNoFile) {
    server.answerWith(GetParam().reply.bytes, GetParam().reply.then);
    limits->stallMilliseconds = 300;
    limits->fileBytes = 1000;
    const AsyncProperty& record = answerTo(request(server.address("/e?x"), AsyncType::File));
    EXPECT_EQ(record.StatusCode, 0);
    EXPECT_THAT(record.Status, HasSubstr(GetParam().status));
    EXPECT_TRUE(record.File.empty());
    EXPECT_FALSE(std::filesystem::exists(file));
}

// What is lost on the way is told in different words: the network beneath does not always tell of it.
INSTANTIATE_TEST_SUITE_P(
    OfEveryFace, BadAnswers,
    testing::Values(
        BadAnswer{"status500",
                  {head("500 Internal Server Error", "Content-Length: 4") + "Oops"},
                  "The server answered 500 Internal Server Error."},
        BadAnswer{
            "status404", {head("404 Not Found", "Content-Length: 0")}, "The server answered 404 Not Found."},
        BadAnswer{"status401",
                  {head("401 Unauthorized", "WWW-Authenticate: Basic realm=\"x\"\r\nContent-Length: 0")},
                  "The server answered 401 Unauthorized."},
        BadAnswer{
            "status304", {"HTTP/1.1 304 Not Modified\r\n\r\n"}, "The server answered 304 Not Modified."},
        BadAnswer{"shortBody",
                  {head("200 OK", "Content-Length: 100") + "half of it", Then::Close},
                  "The answer ended after 10 of 100 bytes."},
        BadAnswer{"resetInBody", {head("200 OK", "Content-Length: 100") + "half of it", Then::Reset}, "The "},
        BadAnswer{"nothing", {"", Then::Close}, "The server"},
        BadAnswer{"silence", {""}, "The server has sent nothing for 0.3 seconds."},
        BadAnswer{"silenceInBody",
                  {head("200 OK", "Content-Length: 100") + "half of it"},
                  "The server has sent nothing for 0.3 seconds."},
        BadAnswer{"redirectLoop",
                  {head("302 Found", "Location: /e?x\r\nContent-Length: 0")},
                  "The server redirects without end."},
        BadAnswer{"tooLarge",
                  {head("200 OK", "Content-Length: 2000") + std::string(2000, 'x')},
                  "The answer is larger than"}),
    NameOfAnswer);

TEST_F(ReaderTest, TellsFailedConnectionsLater) {
    const std::string deserted = RawServer().address();
    EXPECT_THAT(answerTo(request(deserted)).Status, HasSubstr("The server "));
    EXPECT_EQ(completed.at(0).StatusCode, 0);
}

TEST_F(ReaderTest, RefusesAddressesThatAreNone) {
    for (const std::string address :
         {"", "engine", "ftp://host/engine", "http://", "http:///engine", "file:///etc/passwd",
          "file:///c:/windows/win.ini", "\\\\server\\share\\page", "http://two words/engine",
          "javascript:alert(1)"}) {
        try {
            reader->AsyncRead(request(address + "?IC%B7"));
            ADD_FAILURE() << address << " was taken";
        } catch (const Error& error) {
            EXPECT_EQ(error.Number, 5);
            EXPECT_THAT(error.Description, HasSubstr("'" + address + "'"));
        }
    }
}

TEST_F(ReaderTest, WritesFilesAndTellsTheirSize) {
    server.answerWithBody(std::string(300'000, 'p'));
    const AsyncProperty& record = answerTo(request(server.address(), AsyncType::File));
    EXPECT_EQ(record.StatusCode, 6);
    EXPECT_EQ(record.File, file);
    EXPECT_EQ(record.BytesRead, 300'000);
    EXPECT_EQ(record.BytesMax, 300'000);
    EXPECT_EQ(readFile(file), std::vector<uint8_t>(300'000, 'p'));
}

TEST_F(ReaderTest, LimitsTextAnswers) {
    server.answerWithBody(std::string((1 << 20) + 1, 'x'));
    EXPECT_EQ(answerTo(request(server.address())).Status, "The answer is larger than 1 MiB.");
}

TEST_F(ReaderTest, CancelledTransfersSayNothingAndLeaveNoFile) {
    server.answerWith(halfAnAnswer());
    reader->AsyncRead(request(server.address(), AsyncType::File));
    ASSERT_TRUE(waitFor([&] { return !progress.empty(); }));
    EXPECT_GT(progress[0].BytesRead, 0);
    EXPECT_EQ(progress[0].BytesMax, 2 * HalfLength);
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
    EXPECT_EQ(completed.size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(file));
}

// Both end in the same round of the event loop; the report of the one cancels the other, whose end is not
// reported yet.
TEST_F(ReaderTest, CancelledBetweenItsEndAndItsReport) {
    server.answerWith("");
    limits->stallMilliseconds = 50;
    onComplete = [this] {
        reader->CancelAsyncRead("A");
        reader->CancelAsyncRead("B");
    };
    reader->AsyncRead(request(server.address(), AsyncType::ByteArray, "A"));
    reader->AsyncRead(request(server.address(), AsyncType::ByteArray, "B"));
    ASSERT_TRUE(waitFor([&] { return !completed.empty(); }));
    EXPECT_EQ(answerTo(request(server.address(), AsyncType::ByteArray, "C")).PropertyName, "C");
    EXPECT_EQ(completed.size(), 2U);
}

TEST_F(ReaderTest, ATransferReplacesTheOneOfItsName) {
    server.answerWith("");
    reader->AsyncRead(request(server.address("/old")));
    ASSERT_TRUE(waitFor([&] { return server.requests().size() == 1; }));
    server.answerWithBody("new");
    EXPECT_EQ(textOf(answerTo(request(server.address("/new")))), "new");
    EXPECT_EQ(completed.size(), 1U);
}

TEST_F(ReaderTest, MayEndInAnyOfItsReports) {
    server.answerWithBody("fine");
    onComplete = [&] { reader.reset(); };
    answerTo(request(server.address()));
    EXPECT_FALSE(reader);

    makeReaderAgain();
    server.answerWith(halfAnAnswer());
    onProgress = [&] { reader.reset(); };
    reader->AsyncRead(request(server.address(), AsyncType::File));
    EXPECT_TRUE(waitFor([&] { return !reader; }));
    EXPECT_FALSE(std::filesystem::exists(file));
}

} // namespace pixmo::transfers
