#pragma once

#include "core/control/download.h"
#include "core/platform/timer.h"

#include <map>
#include <memory>
#include <string>

namespace pixmo {

/// What a network tells of one request; from the event loop, or from inside of the call that opens it.
class ConnectionListener {
public:
    virtual ~ConnectionListener() = default;

    /// The server is not silent. The calls below say so too.
    virtual void alive() = 0;
    /// As a Download is told. Where the network itself follows redirections, it does not tell of them.
    virtual void redirected(std::string_view address) = 0;
    virtual void answered(int32_t status, std::string_view phrase, int64_t announced) = 0;
    virtual void received(std::span<const uint8_t> data) = 0;
    virtual void ended(NetworkProblem problem, std::string_view text) = 0;
};

/// One request under way. Its end, which never comes from inside of a call to its listener, stops the request
/// without a word.
class Connection {
public:
    virtual ~Connection() = default;
};

/// Transfers over HTTP and HTTPS, whatever network brings them: when they are given up, when they report, and
/// that a listener may do anything inside of a report. A face opens the connections.
class NetworkReader : public AsyncReader {
public:
    explicit NetworkReader(std::unique_ptr<TimerFactory> timers);
    /// Cancels what is under way.
    ~NetworkReader() override;
    NetworkReader(const NetworkReader&) = delete;
    NetworkReader& operator=(const NetworkReader&) = delete;

    void setListener(AsyncReadListener* listener) override { listener_ = listener; }
    void AsyncRead(const AsyncRequest& request) override;
    void CancelAsyncRead(const std::string& propertyName) override;

    /// When a transfer is given up; what is set here holds for the transfers that start afterwards.
    TransferLimits& limits() { return limits_; }

protected:
    /// The listener outlives the connection.
    virtual std::unique_ptr<Connection> connect(const std::string& target, ConnectionListener& listener) = 0;

private:
    class Job;

    void complete(Download& download);

    std::unique_ptr<TimerFactory> timers_;
    AsyncReadListener* listener_ = nullptr;
    TransferLimits limits_;
    std::map<std::string, std::shared_ptr<Job>> running_;
};

} // namespace pixmo
