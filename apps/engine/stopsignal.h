#pragma once

namespace pixmo {

/// Raised once, wakes every thread that waits for it together with a socket.
class StopSignal {
public:
    /// Throws std::system_error.
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    void raise();

    /// Readable once it is raised; for poll().
    int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

} // namespace pixmo
