#include "core/imaging/rotation.h"

#include "tests/imaging/pictures.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

using test::colourAt;
using test::noise;

Raster turnedPixelByPixel(const Raster& source, Turn turn) {
    const bool quarter = turn != Turn::Half;
    Raster result = makeRaster(source.format, quarter ? source.height : source.width,
                               quarter ? source.width : source.height);
    for (int32_t y = 0; y < source.height; ++y) {
        for (int32_t x = 0; x < source.width; ++x) {
            const int32_t right = source.width - 1 - x;
            const int32_t bottom = source.height - 1 - y;
            const auto to = static_cast<size_t>(turn == Turn::Right  ? bottom
                                                : turn == Turn::Left ? y
                                                                     : right);
            const auto out = result.row(turn == Turn::Right ? x : turn == Turn::Left ? right : bottom);
            const uint32_t colour = colourAt(source, x, y);
            if (source.format == PixelFormat::Bilevel)
                out[to / 8] |= static_cast<uint8_t>(colour == 0 ? 0x80U >> (to % 8) : 0U);
            else if (source.format == PixelFormat::Gray)
                out[to] = static_cast<uint8_t>(colour);
            else
                for (size_t c = 0; c < 3; ++c)
                    out[3 * to + c] = static_cast<uint8_t>(colour >> (16 - 8 * c));
        }
    }
    return result;
}

TEST(Rotation, EveryPixelGoesToItsPlace) {
    for (const PixelFormat format : {PixelFormat::Bilevel, PixelFormat::Gray, PixelFormat::Rgb}) {
        for (const auto& [width, height] :
             {std::pair{1, 1}, {7, 70}, {64, 64}, {65, 63}, {203, 127}, {601, 530}}) {
            const Raster raster = noise(format, width, height);
            for (const Turn turn : {Turn::Right, Turn::Left, Turn::Half})
                EXPECT_EQ(rotated(raster, turn).pixels, turnedPixelByPixel(raster, turn).pixels)
                    << width << " by " << height << ", turn " << static_cast<int>(turn);
        }
    }
}

TEST(Rotation, TurnsAddUpAndKeepTheRest) {
    Raster raster = noise(PixelFormat::Bilevel, 131, 77);
    raster.xResolution = 204;
    raster.yResolution = 98;
    raster.bilevelColours = {0x112233, 0x445566};
    const Raster right = rotated(raster, Turn::Right);
    EXPECT_EQ(right.xResolution, 98);
    EXPECT_EQ(right.yResolution, 204);
    EXPECT_EQ(right.bilevelColours, raster.bilevelColours);
    EXPECT_EQ(rotated(right, Turn::Right).pixels, rotated(raster, Turn::Half).pixels);
    EXPECT_EQ(rotated(right, Turn::Left).pixels, raster.pixels);
    EXPECT_EQ(rotated(raster, Turn::Half).xResolution, 204);
}

// Decoders may pack rows more tightly than whole words.
TEST(Rotation, RowsOfAnyStride) {
    const Raster wide = noise(PixelFormat::Bilevel, 77, 90);
    Raster tight = wide;
    tight.stride = packedRowSize(PixelFormat::Bilevel, 77);
    tight.pixels.clear();
    for (int32_t y = 0; y < wide.height; ++y)
        tight.pixels.insert(tight.pixels.end(), wide.row(y).begin(), wide.row(y).begin() + 10);
    for (const Turn turn : {Turn::Right, Turn::Left, Turn::Half})
        EXPECT_EQ(rotated(tight, turn).pixels, rotated(wide, turn).pixels);
}

} // namespace
} // namespace pixmo
