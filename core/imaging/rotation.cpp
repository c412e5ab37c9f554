#include "core/imaging/rotation.h"

#include "core/imaging/bittile.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace pixmo {

namespace {

/// Tiles a block is wide and high: rows of both pictures stay in the cache while a block is turned.
constexpr int32_t BlockTiles = 8;
constexpr int32_t ByteTile = 32;

int32_t tilesAcross(int32_t pixels) {
    return (pixels + BitTile::Side - 1) / BitTile::Side;
}

/// The 64 source columns from 64 * column on become 64 rows of the result; the source rows become its word
/// `word`. Of the rows that the tile reaches beyond the picture nothing is read.
void turnBitTile(const Raster& source, Raster& result, Turn turn, int32_t column, int32_t word) {
    BitTile tile;
    for (int32_t i = 0; i < BitTile::Side; ++i) {
        const int32_t across = word * BitTile::Side + i;
        const int32_t y = turn == Turn::Right ? source.height - 1 - across : across;
        tile.rows[static_cast<size_t>(i)] =
            y >= 0 && y < source.height ? loadBits(source.row(y), static_cast<size_t>(column) * 8) : 0;
    }
    tile.transpose();
    const int32_t first = column * BitTile::Side;
    for (int32_t i = 0; i < std::min(BitTile::Side, source.width - first); ++i) {
        const int32_t y = turn == Turn::Right ? first + i : source.width - 1 - first - i;
        storeBits(result.row(y), static_cast<size_t>(word) * 8, tile.rows[static_cast<size_t>(i)]);
    }
}

/// Calls visit(x, y) for every tile, block by block.
template <typename Visit>
void visitTiles(int32_t across, int32_t down, const Visit& visit) {
    for (int32_t top = 0; top < down; top += BlockTiles)
        for (int32_t left = 0; left < across; left += BlockTiles)
            for (int32_t y = top; y < std::min(down, top + BlockTiles); ++y)
                for (int32_t x = left; x < std::min(across, left + BlockTiles); ++x)
                    visit(x, y);
}

void quarterTurnBits(const Raster& source, Raster& result, Turn turn) {
    visitTiles(tilesAcross(source.width), tilesAcross(source.height),
               [&](int32_t column, int32_t word) { turnBitTile(source, result, turn, column, word); });
}

template <size_t PixelSize>
void turnByteTile(const Raster& source, Raster& result, Turn turn, int32_t left, int32_t top) {
    const int32_t right = std::min(source.width, left + ByteTile);
    const int32_t bottom = std::min(source.height, top + ByteTile);
    for (int32_t x = left; x < right; ++x) {
        uint8_t* out = result.row(turn == Turn::Right ? x : source.width - 1 - x).data();
        for (int32_t y = top; y < bottom; ++y) {
            const int32_t to = turn == Turn::Right ? source.height - 1 - y : y;
            std::memcpy(out + static_cast<size_t>(to) * PixelSize,
                        source.row(y).data() + static_cast<size_t>(x) * PixelSize, PixelSize);
        }
    }
}

template <size_t PixelSize>
void quarterTurnBytes(const Raster& source, Raster& result, Turn turn) {
    visitTiles((source.width + ByteTile - 1) / ByteTile, (source.height + ByteTile - 1) / ByteTile,
               [&](int32_t x, int32_t y) {
                   turnByteTile<PixelSize>(source, result, turn, x * ByteTile, y * ByteTile);
               });
}

/// The row backwards: its words in reverse, moved left by what the last word lacks.
void halfTurnBits(std::span<const uint8_t> row, int32_t width, std::span<uint8_t> out) {
    const auto words = static_cast<size_t>(tilesAcross(width));
    const auto spare = static_cast<unsigned>(words * 64 - static_cast<size_t>(width));
    uint64_t word = reversedBits(loadBits(row, (words - 1) * 8));
    for (size_t i = 0; i < words; ++i) {
        const uint64_t next = i + 1 < words ? reversedBits(loadBits(row, (words - 2 - i) * 8)) : 0;
        storeBits(out, i * 8, spare == 0 ? word : word << spare | next >> (64 - spare));
        word = next;
    }
}

template <size_t PixelSize>
void halfTurnBytes(std::span<const uint8_t> row, int32_t width, std::span<uint8_t> out) {
    const auto pixels = static_cast<size_t>(width);
    for (size_t x = 0; x < pixels; ++x)
        std::memcpy(out.data() + x * PixelSize, row.data() + (pixels - 1 - x) * PixelSize, PixelSize);
}

void halfTurn(const Raster& source, Raster& result) {
    for (int32_t y = 0; y < source.height; ++y) {
        const auto row = source.row(source.height - 1 - y);
        const auto out = result.row(y);
        if (source.format == PixelFormat::Bilevel)
            halfTurnBits(row, source.width, out);
        else if (source.format == PixelFormat::Gray)
            halfTurnBytes<1>(row, source.width, out);
        else
            halfTurnBytes<3>(row, source.width, out);
    }
}

} // namespace

Raster rotated(const Raster& raster, Turn turn) {
    const bool quarter = turn != Turn::Half;
    Raster result = makeRaster(raster.format, quarter ? raster.height : raster.width,
                               quarter ? raster.width : raster.height);
    result.xResolution = quarter ? raster.yResolution : raster.xResolution;
    result.yResolution = quarter ? raster.xResolution : raster.yResolution;
    result.bitsPerPixel = raster.bitsPerPixel;
    result.bilevelColours = raster.bilevelColours;
    if (!quarter)
        halfTurn(raster, result);
    else if (raster.format == PixelFormat::Bilevel)
        quarterTurnBits(raster, result, turn);
    else if (raster.format == PixelFormat::Gray)
        quarterTurnBytes<1>(raster, result, turn);
    else
        quarterTurnBytes<3>(raster, result, turn);
    return result;
}

} // namespace pixmo
