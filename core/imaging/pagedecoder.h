#pragma once

#include "core/raster/raster.h"

#include <cstdint>
#include <span>

namespace pixmo {

/// What a decoder may spend on one page.
struct DecodeLimits {
    uint64_t pixels = 400'000'000;  ///< width times height
    uint64_t bytes = 1'600'000'000; ///< memory of the decoded raster
};

/// Port: turns the bytes of a page into a raster.
class PageDecoder {
public:
    virtual ~PageDecoder() = default;

    /// The first picture in the bytes, at its own depth and resolution. The format is told from the bytes.
    /// Throws invalid picture (481) with a text that says what is wrong, or out of memory (7); never
    /// returns a part of a page.
    virtual Raster decode(std::span<const uint8_t> bytes) const = 0;
};

} // namespace pixmo
