#include "faces/qt/ports/timers.h"

#include <QTimer>
#include <utility>

namespace pixmo::qt {

namespace {

class Timer : public pixmo::Timer {
public:
    explicit Timer(std::function<void()> fired);
    /// May be called from inside the callback.
    ~Timer() override;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    int32_t interval() const override { return timer_->interval(); }
    void setInterval(int32_t milliseconds) override { timer_->setInterval(milliseconds); }
    void start() override { timer_->start(); }
    void stop() override { timer_->stop(); }
    bool isRunning() const override { return timer_->isActive(); }

private:
    QTimer* timer_; ///< outlives this object until the event loop deletes it
};

Timer::Timer(std::function<void()> fired) : timer_(new QTimer) {
    QObject::connect(timer_, &QTimer::timeout, timer_, [fired = std::move(fired)] {
        const auto callback = fired;
        callback();
    });
}

Timer::~Timer() {
    timer_->stop();
    timer_->disconnect();
    timer_->deleteLater();
}

} // namespace

std::unique_ptr<pixmo::Timer> Timers::createTimer(std::function<void()> fired) {
    return std::make_unique<Timer>(std::move(fired));
}

} // namespace pixmo::qt
