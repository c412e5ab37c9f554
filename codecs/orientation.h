#pragma once

#include "core/raster/raster.h"

#include <cstdint>

namespace pixmo {

/// Turns the stored picture upright. `orientation` as TIFF and Exif number it, saying where the first row
/// and the first column lie: 1 top left, 2 top right, 3 bottom right, 4 bottom left, 5 left top, 6 right top,
/// 7 right bottom, 8 left bottom; any other value counts as 1. From 5 on the axes and the resolutions swap.
Raster upright(Raster raster, int32_t orientation);

} // namespace pixmo
