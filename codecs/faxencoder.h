#pragma once

#include "core/raster/raster.h"

#include <cstdint>
#include <vector>

namespace pixmo {

/// A 1-bit picture as ITU-T T.6, one block without header, its ink as black. Empty when it cannot be encoded.
std::vector<uint8_t> encodeFax4(const Raster& picture);

} // namespace pixmo
