#pragma once

#include "core/imaging/pagedecoder.h"

namespace pixmo {

/// A JPEG picture, with the orientation of its Exif block applied.
/// Throws invalid picture (481), std::bad_alloc.
Raster decodeJpeg(std::span<const uint8_t> bytes, const DecodeLimits& limits);

} // namespace pixmo
