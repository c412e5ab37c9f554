#pragma once

#include <functional>
#include <optional>
#include <type_traits>
#include <windows.h>

namespace pixmo::com::test {

/// The thread of the windows, seen from the thread of the tests. What is to be done there is done by its
/// message loop, that of a modal window too.
class UiThread {
public:
    /// Made on that thread.
    UiThread();
    ~UiThread();
    UiThread(const UiThread&) = delete;
    UiThread& operator=(const UiThread&) = delete;

    /// Does it there and gives the result.
    template <typename Function>
    auto on(const Function& function) const {
        using Result = std::invoke_result_t<Function>;
        if constexpr (std::is_void_v<Result>) {
            wait(function);
        } else {
            std::optional<Result> result;
            wait([&] { result.emplace(function()); });
            return std::move(*result);
        }
    }
    /// Starts it there and goes on: it may open a modal window.
    void start(std::function<void()> function) const;
    /// All input that was sent has been handed to the windows.
    void settle() const;

private:
    void wait(const std::function<void()>& function) const;
    static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

    HWND handle_;
};

} // namespace pixmo::com::test
