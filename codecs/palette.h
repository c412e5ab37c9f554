#pragma once

#include "core/raster/raster.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace pixmo {

/// The colours of a picture whose pixels are indices of 1 to 8 bits; a gray scale is a palette like any
/// other. Tells which PixelFormat holds the picture and writes rows of indices in it.
class Palette {
public:
    /// Colours are 0xRRGGBB. Indices without a colour are black, colours without an index are ignored.
    Palette(std::span<const uint32_t> colours, int32_t bits);

    static Palette gray(int32_t bits, bool zeroIsWhite = false);

    /// Bilevel for 1 bit, Gray when every colour is one, otherwise Rgb.
    PixelFormat format() const { return format_; }

    /// The same colours in a raster that holds white whatever the palette has: never Bilevel.
    void avoidBilevel();

    /// Bilevel: the stored bit 0 is the darker colour, so that bits have to be inverted to have 1 = ink.
    bool inverted() const { return inverted_; }

    /// Gray: an index is its own gray value.
    bool isIdentity() const { return identity_; }

    /// Sets the two colours of a bilevel raster.
    void dress(Raster& raster) const;

    /// Writes the pixels of indices, one a byte, to `row` from pixel `x` on. Bilevel rows must be zeroed.
    void write(std::span<const uint8_t> indices, std::span<uint8_t> row, size_t x) const;

private:
    bool isGray() const;
    void describe();

    std::array<uint32_t, 256> colours_{};
    size_t size_ = 0;
    PixelFormat format_ = PixelFormat::Rgb;
    bool inverted_ = false;
    bool identity_ = false;
};

} // namespace pixmo
