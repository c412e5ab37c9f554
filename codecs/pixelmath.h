#pragma once

#include <cstdint>

namespace pixmo {

/// value * factor / 255, rounded; both 0..255.
constexpr uint8_t scaleBy(uint32_t value, uint32_t factor) {
    const uint32_t product = value * factor + 128;
    return static_cast<uint8_t>((product + (product >> 8)) >> 8);
}

/// A sample of 16 bits as one of 8, rounded.
constexpr uint8_t to8Bits(uint32_t sample) {
    return static_cast<uint8_t>((sample * 255 + 32895) >> 16);
}

/// A straight (not premultiplied) sample on white paper; alpha 255 is opaque.
constexpr uint8_t onWhite(uint32_t sample, uint32_t alpha) {
    return static_cast<uint8_t>(scaleBy(sample, alpha) + (255 - alpha));
}

/// A premultiplied sample on white paper. A sample above its alpha, which no valid picture has, is white.
constexpr uint8_t premultipliedOnWhite(uint32_t sample, uint32_t alpha) {
    return static_cast<uint8_t>(sample > alpha ? 255 : sample + (255 - alpha));
}

/// 0xRRGGBB.
constexpr uint32_t packRgb(uint32_t red, uint32_t green, uint32_t blue) {
    return red << 16 | green << 8 | blue;
}

constexpr uint8_t redOf(uint32_t colour) {
    return static_cast<uint8_t>(colour >> 16);
}
constexpr uint8_t greenOf(uint32_t colour) {
    return static_cast<uint8_t>(colour >> 8);
}
constexpr uint8_t blueOf(uint32_t colour) {
    return static_cast<uint8_t>(colour);
}

/// An ink amount of 255 covers the paper wholly; black lies over each of the other three.
constexpr uint8_t inkOnPaper(uint32_t ink, uint32_t black) {
    return scaleBy(255 - ink, 255 - black);
}

} // namespace pixmo
