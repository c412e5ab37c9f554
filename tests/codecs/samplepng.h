#pragma once

#include <cstdint>
#include <vector>

#include <png.h>

namespace pixmo {

/// How a test PNG is made. Samples are those of patternSample.
struct PngSpec {
    uint32_t width = 41;
    uint32_t height = 23;
    int depth = 8;
    int colourType = PNG_COLOR_TYPE_GRAY;
    bool interlaced = false;
    bool transparent = false; ///< a tRNS chunk: pngTransparentSample, or in a palette pngPaletteAlpha
    int resolutionUnit = -1;  ///< -1: no pHYs
    uint32_t xResolution = 0;
    uint32_t yResolution = 0;
    bool blackAndWhite = false; ///< a palette of white and black instead of pngPaletteColour
};

uint32_t pngChannels(const PngSpec& spec);
uint32_t pngPaletteColour(uint32_t index);
uint32_t pngPaletteAlpha(uint32_t index);
/// The sample of a channel that counts as transparent.
uint32_t pngTransparentSample(const PngSpec& spec, uint32_t channel);

std::vector<uint8_t> makePng(const PngSpec& spec);

} // namespace pixmo
