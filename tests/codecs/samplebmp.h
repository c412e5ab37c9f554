#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace pixmo {

/// How a test BMP is made. Samples are those of patternSample: indices up to 8 bits, else the channels.
struct BmpSpec {
    uint32_t width = 35;
    uint32_t height = 21;
    uint16_t bits = 24;
    uint32_t headerSize = 40;
    uint32_t compression = 0;
    bool topDown = false;
    std::array<uint32_t, 3> masks{}; ///< with compression 3
    uint32_t dotsPerMetre = 0;
};

uint32_t bmpColour(uint32_t index);

/// One channel (0 red) of a pixel of 16 or 32 bits with a mask, as the picture stores it, unshifted.
uint32_t bmpMaskedSample(uint32_t mask, uint32_t x, uint32_t y, uint32_t channel);

/// A whole file around pixel data that the caller encoded itself.
std::vector<uint8_t> wrapBmp(const BmpSpec& spec, const std::vector<uint8_t>& data);

/// Plain rows (compression 0 or 3).
std::vector<uint8_t> makeBmp(const BmpSpec& spec);

} // namespace pixmo
