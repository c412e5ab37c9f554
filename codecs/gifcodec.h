#pragma once

#include "core/imaging/pagedecoder.h"

namespace pixmo {

/// The first frame of a GIF picture on its logical screen; what is transparent shows white paper.
/// Throws invalid picture (481), std::bad_alloc.
Raster decodeGif(std::span<const uint8_t> bytes, const DecodeLimits& limits);

} // namespace pixmo
