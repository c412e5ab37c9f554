#pragma once

#include "core/raster/raster.h"

#include <cstdint>
#include <vector>
#include <windows.h>

namespace pixmo::com {

/// A picture in the system's form: header and colours, and rows from the lowest to the highest. A picture of
/// 1 bit keeps its 1 bit.
struct Dib {
    std::vector<uint8_t> header; ///< a BITMAPINFO
    std::vector<uint8_t> bits;

    const BITMAPINFO* info() const { return reinterpret_cast<const BITMAPINFO*>(header.data()); }
};

/// Rows `first` to `last` (behind it) of the picture, whole. Throws std::bad_alloc.
Dib makeDib(const Raster& picture, int32_t first, int32_t last);
inline Dib makeDib(const Raster& picture) {
    return makeDib(picture, 0, picture.height);
}

} // namespace pixmo::com
