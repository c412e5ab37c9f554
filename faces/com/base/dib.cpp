#include "faces/com/base/dib.h"

#include <algorithm>
#include <cstring>

namespace pixmo::com {

namespace {

uint16_t depthOf(PixelFormat format) {
    if (format == PixelFormat::Rgb)
        return 24;
    return format == PixelFormat::Gray ? 8 : 1;
}

size_t colourCount(PixelFormat format) {
    if (format == PixelFormat::Rgb)
        return 0;
    return format == PixelFormat::Gray ? 256 : 2;
}

uint32_t colourOf(const Raster& picture, size_t index) {
    return picture.format == PixelFormat::Bilevel ? picture.bilevelColours.at(index)
                                                  : static_cast<uint32_t>(index) * 0x010101U;
}

/// Each row begins at a whole 32-bit word.
size_t strideOf(const Raster& picture) {
    return (packedRowSize(picture.format, picture.width) + 3) / 4 * 4;
}

std::vector<uint8_t> headerOf(const Raster& picture, int32_t height) {
    const size_t colours = colourCount(picture.format);
    std::vector<uint8_t> bytes(sizeof(BITMAPINFOHEADER) + colours * sizeof(RGBQUAD));
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = picture.width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = depthOf(picture.format);
    header.biSizeImage = static_cast<DWORD>(strideOf(picture)) * static_cast<DWORD>(height);
    header.biXPelsPerMeter = picture.pixelsAMetre().first;
    header.biYPelsPerMeter = picture.pixelsAMetre().second;
    header.biClrUsed = static_cast<DWORD>(colours);
    std::memcpy(bytes.data(), &header, sizeof header);
    for (size_t i = 0; i < colours; ++i) {
        // 0x00RRGGBB in the machine's byte order is blue, green, red, reserved.
        const uint32_t colour = colourOf(picture, i);
        std::memcpy(bytes.data() + sizeof header + i * sizeof colour, &colour, sizeof colour);
    }
    return bytes;
}

void copyRow(const Raster& picture, int32_t y, uint8_t* to) {
    const auto row = picture.row(y).first(packedRowSize(picture.format, picture.width));
    std::copy(row.begin(), row.end(), to);
    if (picture.format != PixelFormat::Rgb)
        return;
    for (size_t at = 0; at < row.size(); at += 3)
        std::swap(to[at], to[at + 2]);
}

} // namespace

Dib makeDib(const Raster& picture, int32_t first, int32_t last) {
    const size_t stride = strideOf(picture);
    Dib dib;
    dib.header = headerOf(picture, last - first);
    dib.bits.resize(stride * static_cast<size_t>(last - first));
    for (int32_t y = first; y < last; ++y)
        copyRow(picture, y, dib.bits.data() + stride * static_cast<size_t>(last - 1 - y));
    return dib;
}

} // namespace pixmo::com
