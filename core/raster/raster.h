#pragma once

#include "core/raster/rectangle.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace pixmo {

/// How the pixels of a Raster lie in memory.
enum class PixelFormat : uint8_t {
    Bilevel, ///< 1 bit per pixel, most significant bit leftmost, 1 = ink.
    Gray,    ///< 8 bits per pixel, 0 = black, 255 = white.
    Rgb,     ///< 24 bits per pixel, bytes red, green, blue (sRGB values as stored).
};

/// A decoded page: rows top to bottom, each `stride` bytes long. Value type; an empty raster has width 0.
struct Raster {
    PixelFormat format = PixelFormat::Bilevel;
    int32_t width = 0;  ///< pixels
    int32_t height = 0; ///< pixels
    size_t stride = 0;  ///< bytes from one row to the next
    /// Dots per inch, always positive; 96 by 96 where the picture does not say.
    double xResolution = 96;
    double yResolution = 96;
    /// Depth of the picture as stored, which may differ from the format's own.
    int32_t bitsPerPixel = 1;
    /// Bilevel only: 0xRRGGBB of bit 0 (paper) and of bit 1 (ink).
    std::array<uint32_t, 2> bilevelColours = {0xFFFFFF, 0x000000};
    /// height * stride bytes. Bilevel: the unused bits at the end of a row are 0.
    std::vector<uint8_t> pixels;

    bool empty() const { return width <= 0 || height <= 0; }
    /// The resolutions as system bitmaps have them.
    std::pair<int32_t, int32_t> pixelsAMetre() const {
        constexpr double inchesAMetre = 1 / 0.0254;
        return {static_cast<int32_t>(std::lround(xResolution * inchesAMetre)),
                static_cast<int32_t>(std::lround(yResolution * inchesAMetre))};
    }

    std::span<const uint8_t> row(int32_t y) const {
        return {pixels.data() + static_cast<size_t>(y) * stride, stride};
    }
    std::span<uint8_t> row(int32_t y) { return {pixels.data() + static_cast<size_t>(y) * stride, stride}; }
};

/// Bytes of one row without padding.
constexpr size_t packedRowSize(PixelFormat format, int32_t width) {
    const auto pixels = static_cast<size_t>(width);
    if (format == PixelFormat::Bilevel)
        return (pixels + 7) / 8;
    return format == PixelFormat::Gray ? pixels : pixels * 3;
}

/// A raster of the given size with zeroed pixels and packed rows (Bilevel: rows padded to 8 bytes).
/// Throws std::bad_alloc.
Raster makeRaster(PixelFormat format, int32_t width, int32_t height);

/// What of the rectangle lies in the picture, as a picture of its own; empty where nothing does.
/// Throws std::bad_alloc.
Raster partOf(const Raster& picture, const Rectangle& rectangle);

/// What a face blits: 32-bit pixels, 0xFFRRGGBB in the machine's byte order, rows top to bottom.
/// Refers to memory of the face.
struct PixelSurface {
    uint32_t* pixels = nullptr;
    int32_t width = 0;  ///< device pixels
    int32_t height = 0; ///< device pixels
    size_t stride = 0;  ///< pixels from one row to the next

    std::span<uint32_t> row(int32_t y) const {
        return {pixels + static_cast<size_t>(y) * stride, static_cast<size_t>(width)};
    }
};

} // namespace pixmo
