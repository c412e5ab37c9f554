#pragma once

#include "core/imaging/pagedecoder.h"

namespace pixmo {

/// A PNG picture; what is transparent shows white paper.
/// Throws invalid picture (481), std::bad_alloc.
Raster decodePng(std::span<const uint8_t> bytes, const DecodeLimits& limits);

} // namespace pixmo
