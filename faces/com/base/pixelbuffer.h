#pragma once

#include "core/raster/raster.h"
#include "core/raster/rectangle.h"
#include "faces/com/base/gdi.h"

#include <cstdint>

namespace pixmo::com {

/// Pixels in memory that the core paints and the system writes upon and copies.
class PixelBuffer {
public:
    PixelBuffer() = default;
    ~PixelBuffer();
    PixelBuffer(const PixelBuffer&) = delete;
    PixelBuffer& operator=(const PixelBuffer&) = delete;

    /// Keeps what there is when the size is the same. False when there is no memory, or nothing to hold.
    bool resize(Size size);
    HDC dc() const { return dc_; }
    /// What the system wrote is there.
    PixelSurface surface() const;
    void copyTo(HDC target) const;

private:
    void release();

    HDC dc_ = nullptr;
    BitmapHandle bitmap_;
    HGDIOBJ before_ = nullptr;
    uint32_t* pixels_ = nullptr;
    Size size_;
};

/// A description of 32-bit pixels in rows from top to bottom.
BITMAPINFO describePixels(Size size);

} // namespace pixmo::com
