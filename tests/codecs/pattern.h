#pragma once

#include "core/raster/raster.h"

#include <cstdint>

namespace pixmo {

/// A sample of `bits` bits at any place of the test pictures. One bit: lines, dots and blanks, as a page has
/// them; more: every level.
inline uint32_t patternSample(uint32_t x, uint32_t y, uint32_t channel, uint32_t bits) {
    if (bits == 1)
        return (x + channel) % 7 < 2 || (y % 5 == 3 && x > 4) || (x * y) % 17 == 5 ? 1 : 0;
    const uint32_t mixed = (x * 37 + y * 101 + channel * 59 + (x * y) / 3) * 2654435761U;
    return mixed >> (32 - bits);
}

/// The colour 0xRRGGBB that a raster shows at a place.
inline uint32_t colourAt(const Raster& raster, uint32_t x, uint32_t y) {
    const auto row = raster.row(static_cast<int32_t>(y));
    switch (raster.format) {
    case PixelFormat::Bilevel:
        return raster.bilevelColours[uint32_t{row[x / 8]} >> (7 - x % 8) & 1U];
    case PixelFormat::Gray:
        return uint32_t{row[x]} * 0x010101U;
    default:
        return uint32_t{row[size_t{x} * 3]} << 16 | uint32_t{row[size_t{x} * 3 + 1]} << 8 |
               uint32_t{row[size_t{x} * 3 + 2]};
    }
}

/// Whether every unused bit at the ends of the rows is 0.
inline bool hasCleanMargins(const Raster& raster) {
    if (raster.format != PixelFormat::Bilevel)
        return true;
    for (int32_t y = 0; y < raster.height; ++y)
        for (size_t x = static_cast<size_t>(raster.width); x < raster.stride * 8; ++x)
            if ((raster.row(y)[x / 8] >> (7 - x % 8) & 1) != 0)
                return false;
    return true;
}

} // namespace pixmo
