#include "codecs/tiffpixels.h"

#include "codecs/bits.h"
#include "codecs/codecerror.h"
#include "codecs/pixelmath.h"
#include "codecs/tifffile.h"

#include <algorithm>

namespace pixmo {

namespace {

Palette readColourMap(const TiffFile& file, uint16_t bits) {
    uint16_t* red = nullptr;
    uint16_t* green = nullptr;
    uint16_t* blue = nullptr;
    if (TIFFGetField(file.tiff(), TIFFTAG_COLORMAP, &red, &green, &blue) != 1)
        throw pictureError("The TIFF page has a palette without colours.");
    const size_t count = size_t{1} << bits;
    // Some writers give 8-bit levels where 16 bits are due.
    const auto isDeep = [count](const uint16_t* levels) {
        return std::any_of(levels, levels + count, [](uint16_t level) { return level > 255; });
    };
    const uint32_t shift = isDeep(red) || isDeep(green) || isDeep(blue) ? 8 : 0;
    const auto level = [shift](uint32_t stored) { return stored >> shift & 255; };
    std::vector<uint32_t> colours(count);
    for (size_t i = 0; i < count; ++i)
        colours[i] = packRgb(level(red[i]), level(green[i]), level(blue[i]));
    return {colours, bits};
}

/// Samples below 8 bits that are levels rather than indices.
void stretch(std::span<uint8_t> samples, uint16_t bits) {
    if (bits >= 8)
        return;
    const uint32_t last = (1U << bits) - 1;
    for (uint8_t& sample : samples)
        sample = static_cast<uint8_t>(sample * 255U / last);
}

} // namespace

TiffPixels::TiffPixels(const TiffFile& file, const TiffLayout& layout) : layout_(layout) {
    if (layout.colours != TiffLayout::Colours::Indices)
        return;
    const uint16_t depth = std::min<uint16_t>(layout.bits, 8);
    palette_ = layout.photometric == PHOTOMETRIC_PALETTE
                   ? readColourMap(file, depth)
                   : Palette::gray(depth, layout.photometric == PHOTOMETRIC_MINISWHITE);
    if (layout.alpha != TiffLayout::Alpha::None)
        palette_->avoidBilevel();
}

PixelFormat TiffPixels::format() const {
    return palette_ ? palette_->format() : PixelFormat::Rgb;
}

void TiffPixels::dress(Raster& raster) const {
    if (palette_)
        palette_->dress(raster);
}

bool TiffPixels::isDirect() const {
    if (layout_.tiled || layout_.separate)
        return false;
    if (palette_)
        return layout_.samples == 1 &&
               (palette_->format() == PixelFormat::Bilevel || (palette_->isIdentity() && layout_.bits == 8));
    return layout_.colours == TiffLayout::Colours::Rgb && layout_.samples == 3 && layout_.bits == 8;
}

void TiffPixels::settle(Raster& raster, uint32_t y, uint32_t rows) const {
    if (palette_ && palette_->format() == PixelFormat::Bilevel)
        spreadBitRows(raster.row(static_cast<int32_t>(y)).data(), rows, layout_.width, raster.stride,
                      palette_->inverted());
}

void TiffPixels::write(const std::vector<const uint8_t*>& planes, size_t count, Raster& raster, uint32_t x,
                       uint32_t y) {
    const std::span<uint8_t> row = raster.row(static_cast<int32_t>(y));
    if (palette_ && palette_->format() == PixelFormat::Bilevel && layout_.samples == 1) {
        copyBits(planes[0], count, row.data(), x, palette_->inverted());
        return;
    }
    gather(planes, count);
    if (palette_)
        writeIndices(count, row, x);
    else if (layout_.colours == TiffLayout::Colours::Rgb)
        writeColours(count, row.data() + size_t{x} * 3);
    else
        writeInks(count, row.data() + size_t{x} * 3);
}

void TiffPixels::gather(const std::vector<const uint8_t*>& planes, size_t count) {
    const size_t samples = layout_.samples;
    samples_.resize(count * samples);
    if (!layout_.separate) {
        unpackSamples(planes[0], layout_.bits, samples_);
    } else {
        plane_.resize(count);
        for (size_t sample = 0; sample < samples; ++sample) {
            unpackSamples(planes[sample], layout_.bits, plane_);
            for (size_t i = 0; i < count; ++i)
                samples_[i * samples + sample] = plane_[i];
        }
    }
    if (!palette_)
        stretch(samples_, layout_.bits);
}

uint8_t TiffPixels::blended(uint8_t sample, uint8_t alpha) const {
    return layout_.alpha == TiffLayout::Alpha::Straight ? onWhite(sample, alpha)
                                                        : premultipliedOnWhite(sample, alpha);
}

void TiffPixels::writeIndices(size_t count, std::span<uint8_t> row, size_t x) {
    const size_t samples = layout_.samples;
    plane_.resize(count);
    for (size_t i = 0; i < count; ++i)
        plane_[i] = samples_[i * samples];
    palette_->write(plane_, row, x);
    if (layout_.alpha == TiffLayout::Alpha::None)
        return;
    const size_t channels = palette_->format() == PixelFormat::Gray ? 1 : 3;
    uint8_t* pixel = row.data() + x * channels;
    const uint32_t last = (1U << std::min<uint16_t>(layout_.bits, 8)) - 1;
    for (size_t i = 0; i < count; ++i) {
        const auto alpha = static_cast<uint8_t>(samples_[i * samples + 1] * 255U / last);
        for (size_t channel = 0; channel < channels; ++channel, ++pixel)
            *pixel = blended(*pixel, alpha);
    }
}

void TiffPixels::writeColours(size_t count, uint8_t* to) const {
    const uint8_t* from = samples_.data();
    const bool opaque = layout_.alpha == TiffLayout::Alpha::None;
    for (size_t i = 0; i < count; ++i, from += layout_.samples)
        for (size_t channel = 0; channel < 3; ++channel)
            *to++ = opaque ? from[channel] : blended(from[channel], from[3]);
}

void TiffPixels::writeInks(size_t count, uint8_t* to) const {
    const uint8_t* from = samples_.data();
    for (size_t i = 0; i < count; ++i, from += layout_.samples)
        for (size_t ink = 0; ink < 3; ++ink)
            *to++ = inkOnPaper(from[ink], from[3]);
}

} // namespace pixmo
