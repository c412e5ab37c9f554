#pragma once

#include "core/imaging/pagedecoder.h"

namespace pixmo {

/// The page decoder of every face: TIFF, JPEG, PNG, GIF and BMP, told apart by their first bytes.
class PageCodecs : public PageDecoder {
public:
    PageCodecs() = default;
    explicit PageCodecs(const DecodeLimits& limits) : limits_(limits) {}

    const DecodeLimits& limits() const { return limits_; }
    void setLimits(const DecodeLimits& limits) { limits_ = limits; }

    Raster decode(std::span<const uint8_t> bytes) const override;

private:
    DecodeLimits limits_;
};

} // namespace pixmo
