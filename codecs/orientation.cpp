#include "codecs/orientation.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace pixmo {

namespace {

constexpr std::array<uint8_t, 256> makeReversedBits() {
    std::array<uint8_t, 256> table{};
    for (uint32_t byte = 0; byte < 256; ++byte)
        for (uint32_t bit = 0; bit < 8; ++bit)
            if ((byte >> bit & 1U) != 0)
                table[byte] = static_cast<uint8_t>(table[byte] | 0x80U >> bit);
    return table;
}

constexpr std::array<uint8_t, 256> ReversedBits = makeReversedBits();

void mirrorBits(std::span<uint8_t> row, size_t width) {
    const size_t bytes = (width + 7) / 8;
    std::reverse(row.begin(), row.begin() + static_cast<std::ptrdiff_t>(bytes));
    for (size_t i = 0; i < bytes; ++i)
        row[i] = ReversedBits[row[i]];
    // The unused bits have come to the left end: the row moves over them.
    const size_t unused = bytes * 8 - width;
    for (size_t i = 0; unused > 0 && i < bytes; ++i) {
        const uint32_t next = i + 1 < bytes ? row[i + 1] : 0U;
        row[i] = static_cast<uint8_t>(uint32_t{row[i]} << unused | next >> (8 - unused));
    }
}

template <size_t Bytes>
void mirrorPixels(std::span<uint8_t> row, size_t width) {
    using Pixel = std::array<uint8_t, Bytes>;
    auto* pixels = reinterpret_cast<Pixel*>(row.data());
    std::reverse(pixels, pixels + width);
}

void mirrorRows(Raster& raster) {
    const auto width = static_cast<size_t>(raster.width);
    for (int32_t y = 0; y < raster.height; ++y) {
        if (raster.format == PixelFormat::Bilevel)
            mirrorBits(raster.row(y), width);
        else if (raster.format == PixelFormat::Gray)
            mirrorPixels<1>(raster.row(y), width);
        else
            mirrorPixels<3>(raster.row(y), width);
    }
}

void turnUpsideDown(Raster& raster) {
    for (int32_t y = 0; y < raster.height / 2; ++y) {
        const auto upper = raster.row(y);
        std::swap_ranges(upper.begin(), upper.end(), raster.row(raster.height - 1 - y).begin());
    }
}

/// Eight rows of eight bits, first row in the highest byte, swapped along the main diagonal.
constexpr uint64_t transpose8x8(uint64_t block) {
    uint64_t swap = (block ^ block >> 7) & 0x00AA00AA00AA00AAU;
    block ^= swap ^ swap << 7;
    swap = (block ^ block >> 14) & 0x0000CCCC0000CCCCU;
    block ^= swap ^ swap << 14;
    swap = (block ^ block >> 28) & 0x00000000F0F0F0F0U;
    return block ^ swap ^ swap << 28;
}

void transposeBits(const Raster& from, Raster& to) {
    const size_t columns = packedRowSize(PixelFormat::Bilevel, from.width);
    for (int32_t y = 0; y < from.height; y += 8) {
        const int32_t rows = std::min(8, from.height - y);
        for (size_t column = 0; column < columns; ++column) {
            uint64_t block = 0;
            for (int32_t i = 0; i < rows; ++i)
                block |= static_cast<uint64_t>(from.row(y + i)[column]) << (56 - 8 * i);
            block = transpose8x8(block);
            const auto x = static_cast<int32_t>(column * 8);
            for (int32_t i = 0; i < 8 && x + i < to.height; ++i)
                to.row(x + i)[static_cast<size_t>(y) / 8] = static_cast<uint8_t>(block >> (56 - 8 * i));
        }
    }
}

template <size_t Bytes>
void transposePixels(const Raster& from, Raster& to) {
    constexpr int32_t Tile = 32; // keeps the rows being written in the cache
    for (int32_t top = 0; top < from.height; top += Tile)
        for (int32_t x = 0; x < from.width; ++x) {
            uint8_t* target = to.row(x).data() + static_cast<size_t>(top) * Bytes;
            const int32_t bottom = std::min(top + Tile, from.height);
            for (int32_t y = top; y < bottom; ++y, target += Bytes)
                std::memcpy(target, from.row(y).data() + static_cast<size_t>(x) * Bytes, Bytes);
        }
}

Raster transposed(const Raster& raster) {
    Raster turned = makeRaster(raster.format, raster.height, raster.width);
    turned.xResolution = raster.yResolution;
    turned.yResolution = raster.xResolution;
    turned.bitsPerPixel = raster.bitsPerPixel;
    turned.bilevelColours = raster.bilevelColours;
    if (raster.format == PixelFormat::Bilevel)
        transposeBits(raster, turned);
    else if (raster.format == PixelFormat::Gray)
        transposePixels<1>(raster, turned);
    else
        transposePixels<3>(raster, turned);
    return turned;
}

} // namespace

Raster upright(Raster raster, int32_t orientation) {
    if (orientation < 2 || orientation > 8)
        return raster;
    if (orientation >= 5)
        raster = transposed(raster);
    if (orientation == 2 || orientation == 3 || orientation == 6 || orientation == 7)
        mirrorRows(raster);
    if (orientation == 3 || orientation == 4 || orientation == 7 || orientation == 8)
        turnUpsideDown(raster);
    return raster;
}

} // namespace pixmo
