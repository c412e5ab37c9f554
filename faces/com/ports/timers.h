#pragma once

#include "core/platform/timer.h"

namespace pixmo::com {

/// Timers of the thread's message loop.
class Timers : public TimerFactory {
public:
    std::unique_ptr<Timer> createTimer(std::function<void()> fired) override;
};

} // namespace pixmo::com
