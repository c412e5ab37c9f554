#pragma once

#include "core/imaging/pagedecoder.h"

namespace pixmo {

/// Throws invalid picture when there is no pixel at all, or when the limits forbid the picture.
void checkSize(uint64_t width, uint64_t height, PixelFormat format, const DecodeLimits& limits);

/// Working memory beside the raster obeys the same limit. `purpose` ends the sentence "N bytes for ...".
void checkWorkingMemory(uint64_t bytes, const char* purpose, const DecodeLimits& limits);

/// makeRaster once the limits allow it. Throws invalid picture, std::bad_alloc.
Raster newRaster(PixelFormat format, uint64_t width, uint64_t height, const DecodeLimits& limits);

} // namespace pixmo
