#pragma once

#include <windows.h>

namespace pixmo::com {

inline constexpr int HimetricPerInch = 2540;

/// Pixels of the resolution (per inch) as units of 0.01 mm, and back.
inline LONG toHimetric(LONG pixels, int resolution) {
    return MulDiv(static_cast<int>(pixels), HimetricPerInch, resolution);
}
inline LONG toPixels(LONG himetric, int resolution) {
    return MulDiv(static_cast<int>(himetric), resolution, HimetricPerInch);
}

/// Dots per inch of the user's desktop, across and down.
inline SIZE screenResolution() {
    const HDC screen = GetDC(nullptr);
    const SIZE resolution{GetDeviceCaps(screen, LOGPIXELSX), GetDeviceCaps(screen, LOGPIXELSY)};
    ReleaseDC(nullptr, screen);
    return resolution;
}

} // namespace pixmo::com
