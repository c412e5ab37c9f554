#pragma once

#include "core/raster/raster.h"

#include <cstdint>
#include <vector>

namespace pixmo {

/// The page as a TIFF 6.0 file with its resolution: 1 bit in black and white as ITU-T T.6, all else (gray,
/// RGB, two other colours as a palette) as LZW, with differences where levels are stored. Throws invalid
/// picture (481) and std::bad_alloc.
std::vector<uint8_t> encodeTiff(const Raster& page);

} // namespace pixmo
