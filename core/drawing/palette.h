#pragma once

#include <cstdint>

namespace pixmo {

/// The user's colours, 0xRRGGBB each.
struct Palette {
    uint32_t base = 0xFFFFFF; ///< behind text to be read
    uint32_t text = 0x000000;
    uint32_t placeholder = 0x808080; ///< text of less weight
    uint32_t highlight = 0x3399FF;
    uint32_t highlightedText = 0xFFFFFF;
    uint32_t face = 0xF0F0F0; ///< of windows, around what is to be read
    uint32_t faceText = 0x000000;
    uint32_t shadow = 0xA0A0A0; ///< edges on a face
};

} // namespace pixmo
