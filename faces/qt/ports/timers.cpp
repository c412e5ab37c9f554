#include "faces/qt/ports/timers.h"

#include "faces/qt/ports/timer.h"

#include <utility>

namespace pixmo::qt {

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

std::unique_ptr<pixmo::Timer> Timers::createTimer(std::function<void()> fired) {
    return std::make_unique<Timer>(std::move(fired));
}

} // namespace pixmo::qt
