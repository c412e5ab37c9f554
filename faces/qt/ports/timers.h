#pragma once

#include "core/platform/timer.h"

namespace pixmo::qt {

/// Timers of Qt's event loop.
class Timers : public TimerFactory {
public:
    std::unique_ptr<pixmo::Timer> createTimer(std::function<void()> fired) override;
};

} // namespace pixmo::qt
