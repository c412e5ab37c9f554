#pragma once

#include "core/base/virtualkeys.h"

#include <cstdint>
#include <windows.h>

namespace pixmo::com {

inline bool isDown(int virtualKey) {
    return GetKeyState(virtualKey) < 0;
}

/// 1 Shift, 2 Ctrl, 4 Alt, summed, as they were when the message being answered was sent.
inline int16_t shiftState() {
    return shift_key::state(isDown(VK_SHIFT), isDown(VK_CONTROL), isDown(VK_MENU));
}

/// How far the wheel has turned, of its message.
inline double notches(WPARAM wParam) {
    return static_cast<double>(static_cast<short>(HIWORD(wParam))) / WHEEL_DELTA;
}

/// The coordinates of a mouse message.
inline POINT pointOf(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

} // namespace pixmo::com
