#pragma once

#include <functional>

namespace pixmo {

/// Port: lets the thread's other events run.
class EventLoop {
public:
    virtual ~EventLoop() = default;

    /// Handles events, asleep between them, until `done` says so; `done` is asked first and again after
    /// every event.
    virtual void pumpUntil(const std::function<bool()>& done) = 0;
    /// Handles the events that have come and returns at once. Where there is nothing of the kind, events
    /// wait until the caller is done.
    virtual void handlePending() {}
};

} // namespace pixmo
