#pragma once

#include "core/platform/eventloop.h"

namespace pixmo::qt {

/// Waits in Qt's event loop. Returns early only when the program quits.
class EventLoop : public pixmo::EventLoop {
public:
    void pumpUntil(const std::function<bool()>& done) override;
    void handlePending() override;
};

} // namespace pixmo::qt
