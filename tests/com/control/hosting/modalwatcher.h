#pragma once

#include <functional>
#include <string>
#include <windows.h>

namespace pixmo::com::test {

/// Looks at the modal windows of the thread, again and again while one stands. One watcher at a time.
class ModalWatcher {
public:
    /// `act` gets each message box or dialog that is to be seen.
    explicit ModalWatcher(std::function<void(HWND)> act);
    ~ModalWatcher();
    ModalWatcher(const ModalWatcher&) = delete;
    ModalWatcher& operator=(const ModalWatcher&) = delete;

    /// The answer that gives up: Cancel, Abort, No, else OK.
    static void giveUp(HWND dialog);
    /// What the dialog says.
    static std::string textOf(HWND dialog);

private:
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD);

    UINT_PTR timer_;
};

} // namespace pixmo::com::test
