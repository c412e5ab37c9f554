#pragma once

#include "core/raster/raster.h"
#include "core/raster/rectangle.h"

#include <cstdint>

namespace pixmo {

/// The paper as a picture can use it. Device pixels from the corner of the printable area.
struct SheetArea {
    Rectangle area;
    double xResolution = 0; ///< device pixels per inch across
    double yResolution = 0; ///< and down
};

/// What of a picture goes where.
struct PicturePlace {
    bool turned = false;   ///< the picture is turned right before; `source` counts in the turned one
    Rectangle source;      ///< pixels of the picture
    Rectangle destination; ///< device pixels, inside of the area
    bool cropped = false;
};

/// As large as fits in true proportion, in the middle. A landscape picture on a portrait area is turned, if
/// `mayTurn`, where that makes it larger.
PicturePlace placeFitted(const Raster& picture, const SheetArea& sheet, bool mayTurn);

/// In true inches by the picture's resolution, in the middle; what is beyond the area is cut off, the same
/// on both sides.
PicturePlace placeFullSize(const Raster& picture, const SheetArea& sheet);

} // namespace pixmo
