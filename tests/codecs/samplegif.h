#pragma once

#include <cstdint>
#include <vector>

namespace pixmo {

/// How a test GIF is made. Indices are those of patternSample.
struct GifSpec {
    int screenWidth = 39;
    int screenHeight = 27;
    int left = 0;
    int top = 0;
    int width = 39;
    int height = 27;
    uint32_t bits = 4;
    bool interlaced = false;
    bool localColours = false;
    int transparent = -1; ///< index, or none
    int frames = 1;       ///< those after the first are blank
};

uint32_t gifColour(uint32_t index);

std::vector<uint8_t> makeGif(const GifSpec& spec);

} // namespace pixmo
