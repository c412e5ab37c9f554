#pragma once

#include "core/raster/raster.h"

#include <cstdint>

namespace pixmo::bench {

/// A 1-bit page that looks like print from afar: margins, paragraphs, lines of glyphs made of strokes, the
/// same ones at every call. The glyphs have the size of 10 point print at 300 dpi.
Raster textPage(int32_t width, int32_t height);

/// The page as a scanner would see it: soft edges, sensor noise; Gray or Rgb.
Raster scannedPage(PixelFormat format, int32_t width, int32_t height);

} // namespace pixmo::bench
