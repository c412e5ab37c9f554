#pragma once

#include "core/platform/asyncreader.h"

#include <cstdint>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pixmo {

/// What a transfer may take.
struct TransferLimits {
    int32_t stallMilliseconds = 60'000; ///< without any progress
    int64_t fileBytes = int64_t{1} << 30;
    int64_t textBytes = int64_t{1} << 20;
};

/// Why a network brought no answer.
enum class NetworkProblem : uint8_t {
    None,
    Refused,
    Closed, ///< before the answer was complete
    NotFound,
    NoAnswer,
    EndlessRedirects,
    InsecureRedirect,
    ProxyRefused,
    ProxyClosed,
    ProxyNotFound,
    ProxyNoAnswer,
    Malformed,
    Other,
};

/// The rules of every transfer, whatever network brings it: what is a proper address and a proper answer,
/// where the data go, and what is told of it. A reader feeds it and asks it for the records.
class Download {
public:
    static constexpr int32_t MostRedirects = 10;
    /// Between two reports of progress.
    static constexpr int32_t ProgressMilliseconds = 50;

    /// Throws invalid procedure call (5) for an address that is not a server's (http or https), path/file
    /// access (75) when the file cannot be made.
    Download(const AsyncRequest& request, const TransferLimits& limits);
    /// A file that was not delivered is removed.
    ~Download();
    Download(const Download&) = delete;
    Download& operator=(const Download&) = delete;

    const AsyncRequest& request() const { return request_; }
    const TransferLimits& limits() const { return limits_; }

    /// Where a reader follows redirections itself. `address` is where the server sends it.
    void redirected(std::string_view address);
    /// `announced` is the size of the data as they are sent, -1 when the server does not say.
    void answered(int32_t status, std::string_view phrase, int64_t announced);
    void received(std::span<const uint8_t> data);
    /// Nothing follows. `text` says what an Other problem is. Where HTTP has said what is wrong, the
    /// network's own problem says less; and there is one when the network calls it a success that HTTP said
    /// nothing.
    void ended(NetworkProblem problem, std::string_view text = {});
    void stalled();

    /// A transfer that failed is not worth going on with.
    bool failed() const { return !failure_.empty(); }

    AsyncProperty progress() const { return record(AsyncStatus::DownloadingData); }
    /// The completion record, once; the file belongs to the caller then.
    AsyncProperty deliver();

private:
    /// Nothing will be delivered; no file is left.
    void discard();
    void fail(std::string reason);
    void keep(std::span<const uint8_t> data);
    std::string problemText(NetworkProblem problem, std::string_view text) const;
    AsyncProperty record(AsyncStatus status) const;

    const AsyncRequest request_;
    const TransferLimits limits_;
    std::ofstream file_;
    std::vector<uint8_t> bytes_;
    int32_t redirects_ = 0;
    int32_t status_ = 0; ///< of HTTP; 0 until there is an answer
    std::string phrase_;
    int64_t announced_ = -1;
    int64_t received_ = 0;
    std::string failure_;
    bool fileIsSettled_ = false; ///< delivered or removed
};

/// What each request says beside its address: that no cache may answer it, and that no small answer swells.
std::vector<std::pair<std::string, std::string>> requestHeaders();
/// Names the packing of an answer. Of a packed one the announced size says nothing.
inline constexpr const char* PackingHeader = "Content-Encoding";
inline constexpr const char* NotPacked = "identity";

} // namespace pixmo
