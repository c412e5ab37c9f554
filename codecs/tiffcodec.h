#pragma once

#include "core/imaging/pagedecoder.h"

namespace pixmo {

/// The first page of a TIFF file, classic or BigTIFF, with its orientation applied.
/// Throws invalid picture (481), std::bad_alloc.
Raster decodeTiff(std::span<const uint8_t> bytes, const DecodeLimits& limits);

} // namespace pixmo
