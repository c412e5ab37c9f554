#pragma once

#include <windows.h>

namespace pixmo::com {

/// Handles the thread's messages until `done` says so; false when that takes too long.
template <typename Done>
bool waitFor(Done done, DWORD milliseconds = 10'000) {
    const DWORD began = GetTickCount();
    while (!done()) {
        const DWORD passed = GetTickCount() - began;
        if (passed >= milliseconds)
            return false;
        MSG message{};
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        } else {
            MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds - passed < 50 ? 1 : 50, QS_ALLINPUT,
                                        MWMO_INPUTAVAILABLE);
        }
    }
    return true;
}

} // namespace pixmo::com
