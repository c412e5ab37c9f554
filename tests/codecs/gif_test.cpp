#include "codecs/pagecodecs.h"
#include "tests/codecs/pattern.h"
#include "tests/codecs/samplegif.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

uint32_t expectedColour(const GifSpec& spec, int x, int y) {
    const int frameX = x - spec.left;
    const int frameY = y - spec.top;
    if (frameX < 0 || frameY < 0 || frameX >= spec.width || frameY >= spec.height)
        return 0xFFFFFF;
    const uint32_t index =
        patternSample(static_cast<uint32_t>(frameX), static_cast<uint32_t>(frameY), 0, spec.bits);
    return static_cast<int>(index) == spec.transparent ? 0xFFFFFF : gifColour(index);
}

void expectDecodes(const GifSpec& spec, PixelFormat format, int width, int height) {
    const Raster raster = PageCodecs().decode(makeGif(spec));
    ASSERT_EQ(raster.format, format);
    ASSERT_EQ(raster.width, width);
    ASSERT_EQ(raster.height, height);
    EXPECT_EQ(raster.bitsPerPixel, static_cast<int32_t>(spec.bits));
    EXPECT_TRUE(hasCleanMargins(raster));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            ASSERT_EQ(colourAt(raster, static_cast<uint32_t>(x), static_cast<uint32_t>(y)),
                      expectedColour(spec, x, y))
                << "at " << x << ", " << y;
}

TEST(Gif, FirstFrameOfEveryKind) {
    for (const uint32_t bits : {1U, 2U, 4U, 8U})
        for (const bool interlaced : {false, true})
            for (const bool localColours : {false, true})
                for (const int transparent : {-1, 1}) {
                    SCOPED_TRACE(testing::Message()
                                 << bits << " bits, interlaced " << interlaced << ", local " << localColours
                                 << ", transparent " << transparent);
                    GifSpec spec;
                    spec.bits = bits;
                    spec.interlaced = interlaced;
                    spec.localColours = localColours;
                    spec.transparent = transparent;
                    spec.frames = 2;
                    expectDecodes(spec, bits == 1 ? PixelFormat::Bilevel : PixelFormat::Rgb, spec.screenWidth,
                                  spec.screenHeight);
                }
}

TEST(Gif, FrameAndScreenMayDiffer) {
    GifSpec inside;
    inside.left = 5;
    inside.top = 3;
    inside.width = 20;
    inside.height = 15;
    for (const uint32_t bits : {1U, 4U}) {
        inside.bits = bits;
        expectDecodes(inside, PixelFormat::Rgb, inside.screenWidth, inside.screenHeight);
    }
    GifSpec outside;
    outside.left = 30;
    outside.top = 20;
    expectDecodes(outside, PixelFormat::Rgb, 69, 47);
}

} // namespace
} // namespace pixmo
