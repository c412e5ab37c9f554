#include "core/raster/raster.h"

#include <algorithm>

namespace pixmo {

namespace {

/// `count` bits from bit `first` of the row on, at the left edge of the other, whose further bits become 0.
void copyBits(std::span<const uint8_t> row, int32_t first, int32_t count, std::span<uint8_t> target) {
    const auto start = static_cast<size_t>(first / 8);
    const int shift = first % 8;
    const size_t size = packedRowSize(PixelFormat::Bilevel, count);
    for (size_t at = 0; at < size; ++at) {
        const int high = row[start + at];
        const int low = start + at + 1 < row.size() ? row[start + at + 1] : 0;
        target[at] = static_cast<uint8_t>((high << 8 | low) >> (8 - shift));
    }
    if (count % 8 != 0)
        target[size - 1] &= static_cast<uint8_t>(0xFF << (8 - count % 8));
}

} // namespace

Raster makeRaster(PixelFormat format, int32_t width, int32_t height) {
    Raster raster;
    raster.format = format;
    raster.width = width;
    raster.height = height;
    raster.stride = packedRowSize(format, width);
    if (format == PixelFormat::Bilevel)
        raster.stride = (raster.stride + 7) / 8 * 8;
    raster.bitsPerPixel = format == PixelFormat::Bilevel ? 1 : format == PixelFormat::Gray ? 8 : 24;
    raster.pixels.resize(raster.stride * static_cast<size_t>(height));
    return raster;
}

Raster partOf(const Raster& picture, const Rectangle& rectangle) {
    const Rectangle part = intersection(rectangle, {0, 0, picture.width, picture.height});
    if (part.empty())
        return {};
    Raster result = makeRaster(picture.format, part.width, part.height);
    result.xResolution = picture.xResolution;
    result.yResolution = picture.yResolution;
    result.bitsPerPixel = picture.bitsPerPixel;
    result.bilevelColours = picture.bilevelColours;
    for (int32_t y = 0; y < part.height; ++y) {
        const auto from = picture.row(part.top + y);
        if (picture.format == PixelFormat::Bilevel) {
            copyBits(from, part.left, part.width, result.row(y));
            continue;
        }
        const auto bytes = from.subspan(packedRowSize(picture.format, part.left));
        std::copy_n(bytes.begin(), packedRowSize(picture.format, part.width), result.row(y).begin());
    }
    return result;
}

} // namespace pixmo
