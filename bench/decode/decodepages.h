#pragma once

#include <cstdint>
#include <vector>

namespace pixmo {

/// A letter page at 300 dots per inch, covered with lines of letter-like strokes, in the three forms in
/// which pages travel.
struct DecodePages {
    std::vector<uint8_t> g4Tiff;
    std::vector<uint8_t> grayJpeg;
    std::vector<uint8_t> colourJpeg;
};

DecodePages makeDecodePages();

} // namespace pixmo
