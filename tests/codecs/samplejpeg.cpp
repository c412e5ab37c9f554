#include "tests/codecs/samplejpeg.h"

#include <array>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace pixmo {

namespace {

constexpr std::array ColourSpaces = {JCS_GRAYSCALE, JCS_YCbCr, JCS_RGB, JCS_CMYK, JCS_YCCK};
constexpr std::array InputSpaces = {JCS_GRAYSCALE, JCS_RGB, JCS_RGB, JCS_CMYK, JCS_CMYK};
constexpr std::array<int, 5> InputChannels = {1, 3, 3, 4, 4};

void configure(jpeg_compress_struct& jpeg, const JpegSpec& spec) {
    const auto kind = static_cast<size_t>(spec.colours);
    jpeg.image_width = spec.width;
    jpeg.image_height = spec.height;
    jpeg.input_components = InputChannels[kind];
    jpeg.in_color_space = InputSpaces[kind];
    jpeg_set_defaults(&jpeg);
    jpeg_set_colorspace(&jpeg, ColourSpaces[kind]);
    jpeg_set_quality(&jpeg, 100, TRUE);
    if (spec.progressive)
        jpeg_simple_progression(&jpeg);
    jpeg.arith_code = spec.arithmetic ? TRUE : FALSE;
    jpeg.restart_in_rows = static_cast<int>(spec.restartRows);
    if (jpeg.write_JFIF_header != FALSE)
        jpeg.write_JFIF_header = spec.jfif ? TRUE : FALSE;
    jpeg.density_unit = spec.densityUnit;
    jpeg.X_density = spec.xDensity;
    jpeg.Y_density = spec.yDensity;
    if (!spec.adobe)
        jpeg.write_Adobe_marker = FALSE;
}

void writeExif(jpeg_compress_struct& jpeg, const JpegSpec& spec) {
    if (spec.exif.empty())
        return;
    std::vector<uint8_t> block = {'E', 'x', 'i', 'f', 0, 0};
    block.insert(block.end(), spec.exif.begin(), spec.exif.end());
    jpeg_write_marker(&jpeg, JPEG_APP0 + 1, block.data(), static_cast<unsigned>(block.size()));
}

std::vector<uint8_t> makeRow(const JpegSpec& spec, uint32_t y) {
    const auto channels = static_cast<uint32_t>(InputChannels[static_cast<size_t>(spec.colours)]);
    std::vector<uint8_t> row;
    for (uint32_t x = 0; x < spec.width; ++x)
        for (uint32_t channel = 0; channel < channels; ++channel) {
            const uint32_t value = jpegLevel(x, y, channel);
            row.push_back(static_cast<uint8_t>(channels == 4 && spec.adobe ? 255 - value : value));
        }
    return row;
}

} // namespace

uint32_t jpegLevel(uint32_t x, uint32_t y, uint32_t channel) {
    constexpr std::array<uint32_t, 4> AcrossSlope = {4, 1, 2, 1};
    constexpr std::array<uint32_t, 4> DownSlope = {1, 4, 2, 1};
    return 20 + x * AcrossSlope[channel] + y * DownSlope[channel];
}

std::vector<uint8_t> makeJpeg(const JpegSpec& spec) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &buffer, &size);
    configure(jpeg, spec);
    jpeg_start_compress(&jpeg, TRUE);
    writeExif(jpeg, spec);
    for (uint32_t y = 0; y < spec.height; ++y) {
        auto row = makeRow(spec, y);
        JSAMPROW pointer = row.data();
        jpeg_write_scanlines(&jpeg, &pointer, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    std::vector<uint8_t> bytes(buffer, buffer + size);
    std::free(buffer);
    return bytes;
}

} // namespace pixmo
