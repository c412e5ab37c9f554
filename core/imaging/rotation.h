#pragma once

#include "core/raster/raster.h"

namespace pixmo {

enum class Turn : uint8_t { Right, Left, Half }; ///< 90 degrees clockwise, counter-clockwise, 180 degrees

/// The picture turned; a quarter turn swaps the resolutions. Throws std::bad_alloc.
Raster rotated(const Raster& raster, Turn turn);

} // namespace pixmo
