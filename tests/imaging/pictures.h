#pragma once

#include "core/raster/raster.h"
#include "core/raster/rectangle.h"

#include <cstdint>
#include <vector>

namespace pixmo::test {

/// A surface with memory of its own, filled with a colour that no test draws.
struct Canvas {
    static constexpr uint32_t Untouched = 0x12345678;

    Canvas(int32_t width, int32_t height)
        : pixels(static_cast<size_t>(width) * static_cast<size_t>(height), Untouched),
          surface{pixels.data(), width, height, static_cast<size_t>(width)} {}
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    uint32_t at(int32_t x, int32_t y) const { return surface.row(y)[static_cast<size_t>(x)]; }

    std::vector<uint32_t> pixels;
    PixelSurface surface;
};

/// Reproducible noise; every 1-bit picture has blank rows and stretches too.
Raster noise(PixelFormat format, int32_t width, int32_t height, uint32_t seed = 1);

/// A 1-bit picture from rows of '#' (ink) and '.'.
Raster picture(const std::vector<const char*>& rows);

/// 0xRRGGBB of a picture's pixel, whatever the format.
uint32_t colourAt(const Raster& raster, int32_t x, int32_t y);

} // namespace pixmo::test
