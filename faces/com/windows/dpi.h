#pragma once

#include <windows.h>

namespace pixmo::com {

inline constexpr int UsualDpi = 96;

/// Sent to a window of a program's own that has come to a screen of another resolution; lParam: the place
/// that it should take there.
inline constexpr UINT DpiChanged = 0x02E0;
/// Sent to the windows inside of such a window after it has changed.
inline constexpr UINT DpiChangedAfterParent = 0x02E3;

/// Dots per inch of the screen that the window is on, as far as its process knows of such differences;
/// nullptr: the desktop's.
int dpiOf(HWND window);

/// For tests, which have one screen only: what every window's resolution is from now on; 0: what it is.
void setDpiStandIn(int dpi);

/// Device-independent pixels in device pixels.
inline int scaled(int length, int dpi) {
    return MulDiv(length, dpi, UsualDpi);
}

/// As GetSystemMetrics, for that resolution.
int systemMetric(int index, int dpi);

} // namespace pixmo::com
