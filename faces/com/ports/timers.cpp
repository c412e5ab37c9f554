#include "faces/com/ports/timers.h"

#include "faces/com/base/window.h"

#include <utility>

namespace pixmo::com {

namespace {

constexpr UINT_PTR TimerId = 1;

/// Hears of one timer's interval.
class TimerWindow : public Window {
public:
    explicit TimerWindow(std::function<void()> fired) : fired_(std::move(fired)) {
        make({L"Pixmo.Timer"}, {HWND_MESSAGE});
    }

private:
    // The callback may end the timer, and this window with it.
    std::optional<LRESULT> onMessage(UINT message, WPARAM, LPARAM) override {
        if (message != WM_TIMER)
            return std::nullopt;
        const auto callback = fired_;
        callback();
        return 0;
    }

    std::function<void()> fired_;
};

class WindowTimer : public Timer {
public:
    explicit WindowTimer(std::function<void()> fired)
        : window_(std::make_shared<TimerWindow>(std::move(fired))) {}
    /// A message that waits already finds no window.
    ~WindowTimer() override { window_->destroy(); }
    WindowTimer(const WindowTimer&) = delete;
    WindowTimer& operator=(const WindowTimer&) = delete;

    int32_t interval() const override { return interval_; }
    void setInterval(int32_t milliseconds) override {
        interval_ = milliseconds;
        if (running_)
            start();
    }
    void start() override {
        running_ = SetTimer(window_->handle(), TimerId, static_cast<UINT>(interval_), nullptr) != 0;
        // The system's own timers are never as quick as a message.
        if (interval_ == 0)
            PostMessageW(window_->handle(), WM_TIMER, TimerId, 0);
    }
    void stop() override {
        if (!std::exchange(running_, false))
            return;
        KillTimer(window_->handle(), TimerId);
        MSG waiting{};
        while (PeekMessageW(&waiting, window_->handle(), WM_TIMER, WM_TIMER, PM_REMOVE))
            continue;
    }
    bool isRunning() const override { return running_; }

private:
    std::shared_ptr<TimerWindow> window_;
    int32_t interval_ = 0;
    bool running_ = false;
};

} // namespace

std::unique_ptr<Timer> Timers::createTimer(std::function<void()> fired) {
    return std::make_unique<WindowTimer>(std::move(fired));
}

} // namespace pixmo::com
