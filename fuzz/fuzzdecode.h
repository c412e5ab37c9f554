#pragma once

#include "core/base/error.h"
#include "core/imaging/pagedecoder.h"

#include <cstdlib>
#include <new>
#include <span>

namespace pixmo {

/// Feeds one decoder: it returns a raster that is sound, or throws what a decoder may throw.
inline int fuzzDecode(Raster (*decode)(std::span<const uint8_t>, const DecodeLimits&), const uint8_t* data,
                      size_t size) {
    constexpr DecodeLimits Limits = {.pixels = 4'000'000, .bytes = 48'000'000};
    try {
        const Raster raster = decode({data, size}, Limits);
        const bool sound = !raster.empty() && raster.xResolution > 0 && raster.yResolution > 0 &&
                           raster.stride >= packedRowSize(raster.format, raster.width) &&
                           raster.pixels.size() == raster.stride * static_cast<size_t>(raster.height);
        if (!sound)
            std::abort();
    } catch (const Error& error) {
        if (error.Number != error_number::InvalidPicture || error.Description.empty())
            std::abort();
    } catch (const std::bad_alloc&) {
        return 0;
    }
    return 0;
}

} // namespace pixmo
