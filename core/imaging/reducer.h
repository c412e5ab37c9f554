#pragma once

#include "core/raster/raster.h"
#include "core/raster/rectangle.h"

namespace pixmo {

/// How a 1-bit picture is shown where its pixels and the surface's do not fall together.
enum class BilevelLook : uint8_t {
    ScaleToGray, ///< the mixture of paper and ink by the area that each covers
    TwoColours,  ///< ink where it covers at least a quarter of the area, else paper
};

/// The rectangle of the whole picture, in its pixels.
RealRectangle wholePicture(const Raster& raster);

/// Draws the `source` part of the picture (pixels, may be fractional, cut to the picture) so that it fills
/// `destination` (surface pixels, may reach beyond the surface), but only inside of `clip` and the surface.
/// Every surface pixel becomes the average of the picture over the area that it shows, exact to one level
/// of 255, whether that makes the picture larger or smaller: enlarged pixels keep sharp edges and equal
/// weight. What is drawn inside of a clip is the same whatever the clip.
void drawPicture(const Raster& raster, const RealRectangle& source, const PixelSurface& surface,
                 const Rectangle& destination, const Rectangle& clip, BilevelLook look);

/// The whole picture over the whole surface.
void drawPicture(const Raster& raster, const PixelSurface& surface);

/// The largest size inside of `bounds` that shows the picture in its true proportion, at least 1 by 1.
Size sizeInside(const Raster& raster, Size bounds);

/// The whole picture in another size, Gray or Rgb (a 1-bit picture in colours other than grays becomes Rgb).
/// The resolution keeps the picture's true size. Throws std::bad_alloc.
Raster resized(const Raster& raster, Size size);

} // namespace pixmo
