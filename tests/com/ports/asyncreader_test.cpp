#include "faces/com/ports/asyncreader.h"

#include "tests/com/ports/waiting.h"
#include "tests/transfers/readertest.h"

// What every face's reader does, by URL monikers.
namespace pixmo {

transfers::ReaderOfFace transfers::makeReader() {
    auto reader = std::make_unique<com::AsyncReader>();
    TransferLimits& limits = reader->limits();
    return {std::move(reader), &limits};
}

bool transfers::waitFor(const std::function<bool()>& condition, int milliseconds) {
    return com::waitFor(condition, static_cast<DWORD>(milliseconds));
}

namespace {

using ComReader = transfers::ReaderTest;

TEST_F(ComReader, NamesItself) {
    server.answerWithBody("fine");
    answerTo(request(server.address()));
    EXPECT_THAT(server.requests().at(0), testing::HasSubstr("User-Agent: " + requestHeaders().back().second));
}

} // namespace
} // namespace pixmo
