#include "core/control/networkreader.h"

#include <system_error>
#include <utility>

namespace pixmo {

/// One download: what the network tells of it, and the moments at which its listener is told. Reports come
/// from timers, never from inside of the call that started the transfer or of the network's code, which a
/// listener might end.
class NetworkReader::Job final : public ConnectionListener, public std::enable_shared_from_this<Job> {
public:
    Job(NetworkReader& reader, const AsyncRequest& request)
        : reader_(reader), download_(request, reader.limits_), stall_(timer(&Job::stalled)),
          progressPause_(timer(&Job::reportProgress)), conclusion_(timer(&Job::report)) {
        stall_->setInterval(download_.limits().stallMilliseconds);
        progressPause_->setInterval(Download::ProgressMilliseconds);
        conclusion_->setInterval(0);
    }

    void start() {
        alive();
        connection_ = reader_.connect(download_.request().Target, *this);
    }

    void alive() override {
        if (!over_)
            stall_->start();
    }
    void redirected(std::string_view address) override {
        tell([&] { download_.redirected(address); });
    }
    void answered(int32_t status, std::string_view phrase, int64_t announced) override {
        tell([&] { download_.answered(status, phrase, announced); });
    }
    void received(std::span<const uint8_t> data) override {
        tell([&] { download_.received(data); });
        if (!over_ && !progressPause_->isRunning())
            progressPause_->start();
    }
    void ended(NetworkProblem problem, std::string_view text) override {
        tell([&] { download_.ended(problem, text); });
        conclude();
    }

private:
    std::unique_ptr<Timer> timer(void (Job::*fired)()) {
        return reader_.timers_->createTimer([this, fired] {
            const auto held = shared_from_this();
            (this->*fired)();
        });
    }

    template <typename Event>
    void tell(const Event& event) {
        if (over_)
            return;
        alive();
        event();
        if (download_.failed())
            conclude();
    }

    void stalled() {
        download_.stalled();
        conclude();
    }

    void reportProgress() {
        progressPause_->stop();
        if (reader_.listener_)
            reader_.listener_->AsyncReadProgress(download_.progress());
    }

    void conclude() {
        if (std::exchange(over_, true))
            return;
        stall_->stop();
        progressPause_->stop();
        conclusion_->start();
    }

    void report() {
        conclusion_->stop();
        connection_.reset();
        reader_.complete(download_);
    }

    NetworkReader& reader_;
    Download download_;
    std::unique_ptr<Timer> stall_;
    std::unique_ptr<Timer> progressPause_;
    std::unique_ptr<Timer> conclusion_;
    bool over_ = false; ///< only the report is outstanding
    std::unique_ptr<Connection> connection_;
};

NetworkReader::NetworkReader(std::unique_ptr<TimerFactory> timers) : timers_(std::move(timers)) {}

NetworkReader::~NetworkReader() = default;

void NetworkReader::AsyncRead(const AsyncRequest& request) {
    CancelAsyncRead(request.PropertyName);
    const auto transfer = std::make_shared<Job>(*this, request);
    running_[request.PropertyName] = transfer;
    transfer->start();
}

void NetworkReader::CancelAsyncRead(const std::string& propertyName) {
    running_.erase(propertyName);
}

// The listener may end this reader.
void NetworkReader::complete(Download& download) {
    running_.erase(download.request().PropertyName);
    const AsyncProperty record = download.deliver();
    std::error_code ignored;
    if (listener_)
        listener_->AsyncReadComplete(record);
    else if (!record.File.empty())
        std::filesystem::remove(record.File, ignored);
}

} // namespace pixmo
