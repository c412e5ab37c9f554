#pragma once

#include "core/raster/raster.h"

#include <cstdint>
#include <vector>

namespace pixmo {

/// The page as a PNG file: 1 bit (gray for black and white, else a palette of two), 8-bit gray or 24-bit RGB,
/// with its resolution. Throws invalid picture (481) and std::bad_alloc.
std::vector<uint8_t> encodePng(const Raster& page);

} // namespace pixmo
