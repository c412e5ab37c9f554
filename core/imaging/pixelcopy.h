#pragma once

#include "core/raster/raster.h"
#include "core/raster/rectangle.h"

namespace pixmo {

/// Pixel for pixel: picture pixel (left, top) comes to the corner of `target`, which lies inside of the
/// surface and shows nothing beyond the picture.
void copyPixels(const Raster& raster, int32_t left, int32_t top, const PixelSurface& surface,
                const Rectangle& target);

} // namespace pixmo
