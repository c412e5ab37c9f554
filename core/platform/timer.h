#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace pixmo {

/// Port: calls back on the thread, again and again until it is stopped. Starting a running timer begins
/// its interval anew. The callback may stop, start and destroy the timer.
class Timer {
public:
    virtual ~Timer() = default;

    virtual int32_t interval() const = 0; ///< milliseconds
    virtual void setInterval(int32_t milliseconds) = 0;
    virtual void start() = 0;
    virtual void stop() = 0;
    virtual bool isRunning() const = 0;
};

class TimerFactory {
public:
    virtual ~TimerFactory() = default;

    virtual std::unique_ptr<Timer> createTimer(std::function<void()> fired) = 0;
};

} // namespace pixmo
