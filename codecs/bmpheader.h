#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pixmo {

/// The headers of a BMP file, of every generation from the 12-byte one of OS/2 to version 5.
struct BmpHeader {
    enum class Coding : uint8_t { Plain, RunLength8, RunLength4 };

    uint64_t width = 0;
    uint64_t height = 0;
    bool topDown = false;
    int32_t bits = 0; ///< 1, 2, 4, 8, 16, 24 or 32
    Coding coding = Coding::Plain;
    std::array<uint32_t, 3> masks{}; ///< of red, green and blue; 16 and 32 bits only
    std::vector<uint32_t> colours;   ///< 0xRRGGBB; up to 8 bits only
    size_t pixelOffset = 0;          ///< never beyond the bytes
    int32_t xDotsPerMetre = 0;
    int32_t yDotsPerMetre = 0;
};

/// Throws invalid picture.
BmpHeader readBmpHeader(std::span<const uint8_t> bytes);

} // namespace pixmo
