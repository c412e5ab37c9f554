#include "tests/codecs/samplepng.h"

#include "tests/codecs/pattern.h"

#include <stdexcept>

namespace pixmo {

namespace {

void append(png_structp png, png_bytep from, size_t count) {
    auto& bytes = *static_cast<std::vector<uint8_t>*>(png_get_io_ptr(png));
    bytes.insert(bytes.end(), from, from + count);
}

void nothing(png_structp) {}

[[noreturn]] void onError(png_structp, png_const_charp text) {
    throw std::logic_error(text);
}

std::vector<uint8_t> packRow(const PngSpec& spec, uint32_t y) {
    std::vector<uint8_t> row;
    uint32_t held = 0;
    uint32_t heldBits = 0;
    const auto depth = static_cast<uint32_t>(spec.depth);
    for (uint32_t x = 0; x < spec.width; ++x)
        for (uint32_t channel = 0; channel < pngChannels(spec); ++channel) {
            held = held << depth | patternSample(x, y, channel, depth);
            for (heldBits += depth; heldBits >= 8; heldBits -= 8)
                row.push_back(static_cast<uint8_t>(held >> (heldBits - 8)));
        }
    if (heldBits > 0)
        row.push_back(static_cast<uint8_t>(held << (8 - heldBits)));
    return row;
}

void setPalette(png_structp png, png_infop info, const PngSpec& spec) {
    std::vector<png_color> colours;
    std::vector<png_byte> alphas;
    for (uint32_t index = 0; index < 1U << spec.depth; ++index) {
        const uint32_t colour = spec.blackAndWhite ? (index == 0 ? 0xFFFFFFU : 0U) : pngPaletteColour(index);
        colours.push_back({static_cast<png_byte>(colour >> 16), static_cast<png_byte>(colour >> 8),
                           static_cast<png_byte>(colour)});
        alphas.push_back(static_cast<png_byte>(pngPaletteAlpha(index)));
    }
    png_set_PLTE(png, info, colours.data(), static_cast<int>(colours.size()));
    if (spec.transparent)
        png_set_tRNS(png, info, alphas.data(), static_cast<int>(alphas.size()), nullptr);
}

void setTransparentColour(png_structp png, png_infop info, const PngSpec& spec) {
    png_color_16 colour{};
    colour.gray = static_cast<png_uint_16>(pngTransparentSample(spec, 0));
    colour.red = colour.gray;
    colour.green = static_cast<png_uint_16>(pngTransparentSample(spec, 1));
    colour.blue = static_cast<png_uint_16>(pngTransparentSample(spec, 2));
    png_set_tRNS(png, info, nullptr, 0, &colour);
}

} // namespace

uint32_t pngChannels(const PngSpec& spec) {
    switch (spec.colourType) {
    case PNG_COLOR_TYPE_RGB:
        return 3;
    case PNG_COLOR_TYPE_RGBA:
        return 4;
    case PNG_COLOR_TYPE_GRAY_ALPHA:
        return 2;
    default:
        return 1;
    }
}

uint32_t pngPaletteColour(uint32_t index) {
    return (index * 0x251B07U + 0x0A1E46U) & 0xFFFFFFU;
}

uint32_t pngPaletteAlpha(uint32_t index) {
    return (index * 85 + 60) & 255U;
}

uint32_t pngTransparentSample(const PngSpec& spec, uint32_t channel) {
    return patternSample(3, 2, channel, static_cast<uint32_t>(spec.depth));
}

std::vector<uint8_t> makePng(const PngSpec& spec) {
    std::vector<uint8_t> bytes;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, onError, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &bytes, append, nothing);
    png_set_IHDR(png, info, spec.width, spec.height, spec.depth, spec.colourType,
                 spec.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (spec.colourType == PNG_COLOR_TYPE_PALETTE)
        setPalette(png, info, spec);
    else if (spec.transparent)
        setTransparentColour(png, info, spec);
    if (spec.resolutionUnit >= 0)
        png_set_pHYs(png, info, spec.xResolution, spec.yResolution, spec.resolutionUnit);
    png_write_info(png, info);
    std::vector<std::vector<uint8_t>> rows;
    for (uint32_t y = 0; y < spec.height; ++y)
        rows.push_back(packRow(spec, y));
    std::vector<png_bytep> pointers;
    for (auto& row : rows)
        pointers.push_back(row.data());
    png_write_image(png, pointers.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return bytes;
}

} // namespace pixmo
