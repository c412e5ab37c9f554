#pragma once

#include "core/drawing/palette.h"
#include "core/platform/propertyvalue.h"

#include <cstdint>
#include <windows.h>

namespace pixmo::com {

/// A system colour becomes the user's of that moment.
COLORREF toColorRef(Colour colour);

/// 0xRRGGBB.
constexpr uint32_t rgbOf(COLORREF colour) {
    return (colour & 0xFFU) << 16U | (colour & 0xFF00U) | (colour >> 16U & 0xFFU);
}

constexpr COLORREF colorRefOf(uint32_t rgb) {
    return rgbOf(rgb);
}

/// The user's colours of this moment.
Palette systemPalette();

} // namespace pixmo::com
