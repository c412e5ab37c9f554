#include "codecs/palette.h"

#include "codecs/pixelmath.h"

#include <algorithm>

namespace pixmo {

namespace {

constexpr uint32_t brightness(uint32_t colour) {
    return redOf(colour) * 299U + greenOf(colour) * 587U + blueOf(colour) * 114U;
}

} // namespace

Palette::Palette(std::span<const uint32_t> colours, int32_t bits) : size_(size_t{1} << bits) {
    std::copy_n(colours.begin(), std::min(colours.size(), size_), colours_.begin());
    format_ = bits == 1 ? PixelFormat::Bilevel : isGray() ? PixelFormat::Gray : PixelFormat::Rgb;
    describe();
}

Palette Palette::gray(int32_t bits, bool zeroIsWhite) {
    std::array<uint32_t, 256> ramp{};
    const uint32_t last = (1U << bits) - 1;
    for (uint32_t index = 0; index <= last; ++index) {
        const uint32_t level = index * 255 / last;
        ramp[index] = (zeroIsWhite ? 255 - level : level) * 0x010101U;
    }
    return {ramp, bits};
}

bool Palette::isGray() const {
    return std::all_of(colours_.begin(), colours_.begin() + static_cast<std::ptrdiff_t>(size_),
                       [](uint32_t colour) { return colour == blueOf(colour) * 0x010101U; });
}

void Palette::describe() {
    inverted_ = format_ == PixelFormat::Bilevel && brightness(colours_[0]) < brightness(colours_[1]);
    identity_ = format_ == PixelFormat::Gray && size_ == 256;
    for (uint32_t index = 0; identity_ && index < size_; ++index)
        identity_ = blueOf(colours_[index]) == index;
}

void Palette::avoidBilevel() {
    if (format_ == PixelFormat::Bilevel)
        format_ = isGray() ? PixelFormat::Gray : PixelFormat::Rgb;
    describe();
}

void Palette::dress(Raster& raster) const {
    if (format_ == PixelFormat::Bilevel)
        raster.bilevelColours = {colours_[inverted_ ? 1 : 0], colours_[inverted_ ? 0 : 1]};
}

void Palette::write(std::span<const uint8_t> indices, std::span<uint8_t> row, size_t x) const {
    if (format_ == PixelFormat::Bilevel) {
        const uint32_t flip = inverted_ ? 1 : 0;
        for (const uint8_t index : indices) {
            row[x / 8] = static_cast<uint8_t>(row[x / 8] | ((index & 1U) ^ flip) << (7 - x % 8));
            ++x;
        }
    } else if (format_ == PixelFormat::Gray) {
        uint8_t* pixel = row.data() + x;
        for (const uint8_t index : indices)
            *pixel++ = blueOf(colours_[index]);
    } else {
        uint8_t* pixel = row.data() + x * 3;
        for (const uint8_t index : indices) {
            *pixel++ = redOf(colours_[index]);
            *pixel++ = greenOf(colours_[index]);
            *pixel++ = blueOf(colours_[index]);
        }
    }
}

} // namespace pixmo
