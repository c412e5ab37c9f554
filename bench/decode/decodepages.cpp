#include "bench/decode/decodepages.h"

#include "codecs/tiffwriter.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

#include <jpeglib.h>

namespace pixmo {

namespace {

constexpr uint32_t Width = 2550;
constexpr uint32_t Height = 3300;

/// One byte a pixel, 0 = ink, 255 = paper.
using Drawing = std::vector<uint8_t>;

void fill(Drawing& page, uint32_t x, uint32_t y, uint32_t width, uint32_t height) {
    for (uint32_t row = y; row < std::min(Height, y + height); ++row)
        for (uint32_t column = x; column < std::min(Width, x + width); ++column)
            page[size_t{row} * Width + column] = 0;
}

/// A stem or two, a bar or two and a slanted stroke, within 22 x 32 dots: about what 10-point type leaves.
void drawLetter(Drawing& page, uint32_t x, uint32_t y, std::mt19937& random) {
    const auto kind = static_cast<uint32_t>(random());
    const uint32_t top = (kind & 1) != 0 ? y : y + 10;
    if ((kind & 2) != 0)
        fill(page, x, top, 4, y + 32 - top);
    if ((kind & 4) != 0)
        fill(page, x + 15, y + 10, 4, 22);
    if ((kind & 8) != 0)
        fill(page, x, y + 10, 19, 3);
    if ((kind & 16) != 0)
        fill(page, x, y + 29, 19, 3);
    if ((kind & 32) != 0)
        for (uint32_t i = 0; i < 20; ++i)
            fill(page, x + i, y + 10 + i, 4, 1);
}

Drawing drawPage() {
    Drawing page(size_t{Width} * Height, 255);
    std::mt19937 random(300);
    for (uint32_t y = 300; y < 3000; y += 50)
        for (uint32_t x = 300; x < 2250; x += random() % 6 == 0 ? 46U : 24U)
            drawLetter(page, x, y, random);
    return page;
}

std::vector<uint8_t> encodeG4(const Drawing& page) {
    Raster raster;
    raster.format = PixelFormat::Bilevel;
    raster.width = Width;
    raster.height = Height;
    raster.stride = (Width + 7) / 8;
    raster.xResolution = raster.yResolution = 300;
    raster.pixels.resize(raster.stride * Height);
    for (uint32_t y = 0; y < Height; ++y)
        for (uint32_t x = 0; x < Width; ++x)
            if (page[size_t{y} * Width + x] == 0)
                raster.pixels[y * raster.stride + x / 8] |= static_cast<uint8_t>(0x80U >> x % 8);
    return encodeTiff(raster);
}

/// Warm paper with the noise of a scanner.
std::vector<uint8_t> scannedRow(const Drawing& page, uint32_t y, int channels, std::mt19937& random) {
    std::vector<uint8_t> row;
    for (uint32_t x = 0; x < Width; ++x) {
        const int noise = static_cast<int>(random() % 7) - 3;
        for (int channel = 0; channel < channels; ++channel) {
            const int level = (page[size_t{y} * Width + x] == 0 ? 30 : 240) - 6 * channel + noise;
            row.push_back(static_cast<uint8_t>(level));
        }
    }
    return row;
}

std::vector<uint8_t> encodeJpeg(const Drawing& page, int channels) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &buffer, &size);
    jpeg.image_width = Width;
    jpeg.image_height = Height;
    jpeg.input_components = channels;
    jpeg.in_color_space = channels == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_start_compress(&jpeg, TRUE);
    std::mt19937 random(75);
    for (uint32_t y = 0; y < Height; ++y) {
        auto row = scannedRow(page, y, channels, random);
        JSAMPROW pointer = row.data();
        jpeg_write_scanlines(&jpeg, &pointer, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    std::vector<uint8_t> bytes(buffer, buffer + size);
    std::free(buffer);
    return bytes;
}

} // namespace

DecodePages makeDecodePages() {
    const Drawing page = drawPage();
    return {encodeG4(page), encodeJpeg(page, 1), encodeJpeg(page, 3)};
}

} // namespace pixmo
