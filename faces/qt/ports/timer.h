#pragma once

#include "core/platform/timer.h"

#include <QTimer>

namespace pixmo::qt {

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

} // namespace pixmo::qt
