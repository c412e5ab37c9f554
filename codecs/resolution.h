#pragma once

#include "core/raster/raster.h"

namespace pixmo {

inline constexpr double CentimetresPerInch = 2.54;
inline constexpr double MetresPerInch = 0.0254;

/// Dots per inch as the picture gives them. When only one direction has a credible value, both get it; when
/// none has, the raster keeps its 96 by 96.
void setResolution(Raster& raster, double xDotsPerInch, double yDotsPerInch);

/// Only the shape of a pixel is known: dots across and down of the same, unknown length. The coarser
/// direction gets 96 dots per inch.
void setPixelShape(Raster& raster, double xDots, double yDots);

} // namespace pixmo
