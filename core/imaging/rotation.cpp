#include "core/imaging/rotation.h"

#include "core/base/words.h"
#include "core/imaging/bittile.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace pixmo {

namespace {

/// Tiles a block is wide and high: rows of both pictures stay in the cache while a block is turned.
constexpr int32_t BlockTiles = 8;
constexpr int32_t ByteTile = 64;

int32_t tilesAcross(int32_t pixels) {
    return (pixels + BitTile::Side - 1) / BitTile::Side;
}

/// Loads the 64 pixels from byte `at` on of 64 rows, from row `first` on in steps of `step`; rows beyond the
/// picture are blank.
void loadTile(const Raster& source, int32_t first, int32_t step, size_t at, BitTile& tile) {
    const int32_t last = first + step * (BitTile::Side - 1);
    if (std::min(first, last) >= 0 && std::max(first, last) < source.height && at + 8 <= source.stride) {
        const uint8_t* from = source.row(first).data() + at;
        const ptrdiff_t stride = step * static_cast<ptrdiff_t>(source.stride);
        for (ptrdiff_t i = 0; i < BitTile::Side; ++i)
            tile.rows[static_cast<size_t>(i)] = loadWord(from + i * stride);
        return;
    }
    for (int32_t i = 0; i < BitTile::Side; ++i) {
        const int32_t y = first + step * i;
        tile.rows[static_cast<size_t>(i)] = y >= 0 && y < source.height ? loadBits(source.row(y), at) : 0;
    }
}

/// The 64 source columns from 64 * column on become 64 rows of the result; 64 source rows become its word
/// `word`.
void turnBitTile(const Raster& source, Raster& result, Turn turn, int32_t column, int32_t word) {
    const bool right = turn == Turn::Right;
    const int32_t across = word * BitTile::Side;
    const int32_t down = column * BitTile::Side;
    BitTile tile;
    loadTile(source, right ? source.height - 1 - across : across, right ? -1 : 1,
             static_cast<size_t>(column) * 8, tile);
    tile.transpose();
    uint8_t* to = result.row(right ? down : source.width - 1 - down).data() + static_cast<size_t>(word) * 8;
    const ptrdiff_t stride = (right ? 1 : -1) * static_cast<ptrdiff_t>(result.stride);
    for (ptrdiff_t i = 0; i < std::min(BitTile::Side, source.width - down); ++i)
        storeWord(to + i * stride, tile.rows[static_cast<size_t>(i)]);
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
    const int32_t bottom = std::min(source.height, top + ByteTile);
    // Down a column of the source, the pixels of a row of the result are written in rising order.
    const int32_t first = turn == Turn::Right ? bottom - 1 : top;
    const auto step = (turn == Turn::Right ? -1 : 1) * static_cast<ptrdiff_t>(source.stride);
    const auto to = static_cast<size_t>(turn == Turn::Right ? source.height - bottom : top) * PixelSize;
    for (int32_t x = left; x < std::min(source.width, left + ByteTile); ++x) {
        const uint8_t* in = source.row(first).data() + static_cast<size_t>(x) * PixelSize;
        uint8_t* out = result.row(turn == Turn::Right ? x : source.width - 1 - x).data() + to;
        for (ptrdiff_t i = 0; i < bottom - top; ++i)
            std::memcpy(out + i * static_cast<ptrdiff_t>(PixelSize), in + i * step, PixelSize);
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
        storeWord(out.data() + i * 8, spare == 0 ? word : word << spare | next >> (64 - spare));
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
