#pragma once

#include <windows.h>

namespace pixmo::com {

inline constexpr int UsualDpi = 96;

/// Of the screen that the window is on, as far as its process knows of such differences; nullptr: the
/// desktop's.
int dpiOf(HWND window);

/// Device-independent pixels in device pixels.
inline int scaled(int length, int dpi) {
    return MulDiv(length, dpi, UsualDpi);
}

/// As GetSystemMetrics, for that resolution.
int systemMetric(int index, int dpi);

} // namespace pixmo::com
