#pragma once

#include <cstdint>
#include <vector>

namespace pixmo {

/// How a test JPEG is made.
struct JpegSpec {
    enum class Colours : uint8_t { Gray, YCbCr, Rgb, Cmyk, Ycck };

    uint32_t width = 45;
    uint32_t height = 38;
    Colours colours = Colours::YCbCr;
    bool progressive = false;
    bool arithmetic = false;
    uint32_t restartRows = 0;
    bool jfif = true;
    uint8_t densityUnit = 0;
    uint16_t xDensity = 1;
    uint16_t yDensity = 1;
    bool adobe = true;         ///< Cmyk and Ycck: with the marker, and with the samples inverted
    std::vector<uint8_t> exif; ///< a TIFF block; none when empty
};

/// The gentle slopes of the test pictures: channel 0..3 at a place, 0..255.
uint32_t jpegLevel(uint32_t x, uint32_t y, uint32_t channel);

std::vector<uint8_t> makeJpeg(const JpegSpec& spec);

} // namespace pixmo
