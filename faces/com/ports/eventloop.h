#pragma once

#include "core/platform/eventloop.h"

namespace pixmo::com {

/// The thread's message loop. Waiting ends early only when the program quits.
class EventLoop : public pixmo::EventLoop {
public:
    void pumpUntil(const std::function<bool()>& done) override;
    void handlePending() override;
};

} // namespace pixmo::com
