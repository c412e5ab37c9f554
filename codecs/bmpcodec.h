#pragma once

#include "core/imaging/pagedecoder.h"

namespace pixmo {

/// A BMP picture: every depth, run lengths and bit fields. A fourth channel is ignored.
/// Throws invalid picture (481), std::bad_alloc.
Raster decodeBmp(std::span<const uint8_t> bytes, const DecodeLimits& limits);

} // namespace pixmo
