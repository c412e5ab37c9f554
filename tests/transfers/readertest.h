#pragma once

#include "core/control/download.h"
#include "core/platform/asyncreader.h"
#include "tests/transfers/rawserver.h"

#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace pixmo::transfers {

/// A face's reader, and the limits that it keeps to.
struct ReaderOfFace {
    std::unique_ptr<AsyncReader> reader;
    TransferLimits* limits = nullptr;
};

// Each face's test program defines these.
ReaderOfFace makeReader();
/// Handles events until the condition holds; false when it does not within the time.
bool waitFor(const std::function<bool()>& condition, int milliseconds = 15'000);

class ReaderTest : public testing::Test, protected AsyncReadListener {
public:
    ~ReaderTest() override;

protected:
    ReaderTest();

    void makeReaderAgain();
    AsyncRequest request(const std::string& target, AsyncType type = AsyncType::ByteArray,
                         const std::string& name = "T") const;
    /// The report number `index`, waited for.
    const AsyncProperty& completion(size_t index);
    const AsyncProperty& answerTo(const AsyncRequest& asked);

    RawServer server;
    std::filesystem::path file;
    std::unique_ptr<AsyncReader> reader;
    TransferLimits* limits = nullptr;
    std::vector<AsyncProperty> completed;
    std::vector<AsyncProperty> progress;
    std::function<void()> onComplete;
    std::function<void()> onProgress;

private:
    void AsyncReadComplete(const AsyncProperty& record) override;
    void AsyncReadProgress(const AsyncProperty& record) override;
};

std::string textOf(const AsyncProperty& record);
/// Half of an answer, so large that every network tells of it.
std::string halfAnAnswer();

struct BadAnswer {
    const char* name;
    RawServer::Reply reply;
    const char* status; ///< holds this
};

inline void PrintTo(const BadAnswer& answer, std::ostream* out) {
    *out << answer.name;
}

class BadAnswers : public ReaderTest, public testing::WithParamInterface<BadAnswer> {};

inline const auto NameOfAnswer = [](const auto& answer) { return std::string(answer.param.name); };

} // namespace pixmo::transfers
