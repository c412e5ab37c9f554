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
};

} // namespace pixmo
