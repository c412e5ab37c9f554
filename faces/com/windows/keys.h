#pragma once

#include <cstdint>
#include <windows.h>

namespace pixmo::com {

inline bool isDown(int virtualKey) {
    return GetKeyState(virtualKey) < 0;
}

/// 1 Shift, 2 Ctrl, 4 Alt, summed, as they were when the message being answered was sent.
inline int16_t shiftState() {
    return static_cast<int16_t>((isDown(VK_SHIFT) ? 1 : 0) + (isDown(VK_CONTROL) ? 2 : 0) +
                                (isDown(VK_MENU) ? 4 : 0));
}

/// The coordinates of a mouse message.
inline POINT pointOf(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

} // namespace pixmo::com
