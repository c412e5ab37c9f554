#include "tests/imaging/pictures.h"

#include <cstring>
#include <random>

namespace pixmo::test {

Raster noise(PixelFormat format, int32_t width, int32_t height, uint32_t seed) {
    Raster raster = makeRaster(format, width, height);
    std::mt19937 random(seed);
    for (int32_t y = 0; y < height; ++y) {
        const auto row = raster.row(y);
        const bool blank = format == PixelFormat::Bilevel && y % 9 < 3;
        for (size_t i = 0; i < packedRowSize(format, width); ++i)
            row[i] = blank || (format == PixelFormat::Bilevel && i % 50 > 29)
                         ? uint8_t{0}
                         : static_cast<uint8_t>(random());
        if (format == PixelFormat::Bilevel && width % 8 != 0)
            row[static_cast<size_t>(width / 8)] &= static_cast<uint8_t>(0xFF00U >> (width % 8));
    }
    return raster;
}

Raster picture(const std::vector<const char*>& rows) {
    Raster raster = makeRaster(PixelFormat::Bilevel, static_cast<int32_t>(std::strlen(rows.at(0))),
                               static_cast<int32_t>(rows.size()));
    for (int32_t y = 0; y < raster.height; ++y)
        for (size_t x = 0; x < static_cast<size_t>(raster.width); ++x)
            if (rows[static_cast<size_t>(y)][x] == '#')
                raster.row(y)[x / 8] |= static_cast<uint8_t>(0x80U >> (x % 8));
    return raster;
}

uint32_t colourAt(const Raster& raster, int32_t x, int32_t y) {
    const auto row = raster.row(y);
    const auto column = static_cast<size_t>(x);
    if (raster.format == PixelFormat::Bilevel)
        return raster.bilevelColours[(static_cast<unsigned>(row[column / 8]) >> (7 - column % 8)) & 1U];
    if (raster.format == PixelFormat::Gray)
        return row[column] * 0x010101U;
    return static_cast<uint32_t>(row[3 * column] << 16U | row[3 * column + 1] << 8U | row[3 * column + 2]);
}

} // namespace pixmo::test
