#include "codecs/pagecodecs.h"
#include "tests/codecs/pattern.h"
#include "tests/codecs/samplepng.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace pixmo {
namespace {

struct Kind {
    int colourType;
    int depth;
    PixelFormat format;
    int32_t bits;
};

uint32_t onPaper(double value, double alpha) {
    return static_cast<uint32_t>(std::lround(value * alpha + 255 * (1 - alpha)));
}

double level(const PngSpec& spec, uint32_t x, uint32_t y, uint32_t channel) {
    const auto depth = static_cast<uint32_t>(spec.depth);
    return patternSample(x, y, channel, depth) * 255.0 / ((1U << depth) - 1);
}

uint32_t expectedColour(const PngSpec& spec, uint32_t x, uint32_t y) {
    const auto depth = static_cast<uint32_t>(spec.depth);
    std::array<uint32_t, 3> rgb{};
    if (spec.colourType == PNG_COLOR_TYPE_PALETTE) {
        const uint32_t index = patternSample(x, y, 0, depth);
        const double alpha = spec.transparent ? pngPaletteAlpha(index) / 255.0 : 1;
        for (uint32_t channel = 0; channel < 3; ++channel)
            rgb[channel] = onPaper(pngPaletteColour(index) >> (16 - 8 * channel) & 255, alpha);
        return rgb[0] << 16 | rgb[1] << 8 | rgb[2];
    }
    const uint32_t colours = (spec.colourType & PNG_COLOR_MASK_COLOR) != 0 ? 3 : 1;
    double alpha = 1;
    if ((spec.colourType & PNG_COLOR_MASK_ALPHA) != 0)
        alpha = level(spec, x, y, colours) / 255;
    if (spec.transparent) {
        alpha = 0;
        for (uint32_t channel = 0; channel < colours; ++channel)
            if (patternSample(x, y, channel, depth) != pngTransparentSample(spec, channel))
                alpha = 1;
    }
    for (uint32_t channel = 0; channel < 3; ++channel)
        rgb[channel] = onPaper(level(spec, x, y, std::min(channel, colours - 1)), alpha);
    return rgb[0] << 16 | rgb[1] << 8 | rgb[2];
}

TEST(Png, EveryColourTypeAndDepth) {
    constexpr std::array Kinds = {
        Kind{PNG_COLOR_TYPE_GRAY, 1, PixelFormat::Bilevel, 1},
        Kind{PNG_COLOR_TYPE_GRAY, 2, PixelFormat::Gray, 2},
        Kind{PNG_COLOR_TYPE_GRAY, 4, PixelFormat::Gray, 4},
        Kind{PNG_COLOR_TYPE_GRAY, 8, PixelFormat::Gray, 8},
        Kind{PNG_COLOR_TYPE_GRAY, 16, PixelFormat::Gray, 16},
        Kind{PNG_COLOR_TYPE_PALETTE, 1, PixelFormat::Bilevel, 1},
        Kind{PNG_COLOR_TYPE_PALETTE, 2, PixelFormat::Rgb, 2},
        Kind{PNG_COLOR_TYPE_PALETTE, 4, PixelFormat::Rgb, 4},
        Kind{PNG_COLOR_TYPE_PALETTE, 8, PixelFormat::Rgb, 8},
        Kind{PNG_COLOR_TYPE_RGB, 8, PixelFormat::Rgb, 24},
        Kind{PNG_COLOR_TYPE_RGB, 16, PixelFormat::Rgb, 48},
        Kind{PNG_COLOR_TYPE_GRAY_ALPHA, 8, PixelFormat::Gray, 16},
        Kind{PNG_COLOR_TYPE_GRAY_ALPHA, 16, PixelFormat::Gray, 32},
        Kind{PNG_COLOR_TYPE_RGBA, 8, PixelFormat::Rgb, 32},
        Kind{PNG_COLOR_TYPE_RGBA, 16, PixelFormat::Rgb, 64},
    };
    for (const Kind& kind : Kinds)
        for (const bool interlaced : {false, true})
            for (const bool transparent : {false, true}) {
                if (transparent && (kind.colourType & PNG_COLOR_MASK_ALPHA) != 0)
                    continue;
                SCOPED_TRACE(testing::Message()
                             << "type " << kind.colourType << ", depth " << kind.depth << ", interlaced "
                             << interlaced << ", transparent " << transparent);
                PngSpec spec;
                spec.colourType = kind.colourType;
                spec.depth = kind.depth;
                spec.interlaced = interlaced;
                spec.transparent = transparent;
                const Raster raster = PageCodecs().decode(makePng(spec));
                ASSERT_EQ(raster.format, kind.format);
                EXPECT_EQ(raster.bitsPerPixel, kind.bits);
                EXPECT_TRUE(hasCleanMargins(raster));
                for (uint32_t y = 0; y < spec.height; ++y)
                    for (uint32_t x = 0; x < spec.width; ++x)
                        for (int shift = 0; shift <= 16; shift += 8)
                            ASSERT_NEAR(static_cast<int>(colourAt(raster, x, y) >> shift & 255),
                                        static_cast<int>(expectedColour(spec, x, y) >> shift & 255), 1)
                                << "at " << x << ", " << y;
            }
}

TEST(Png, InkIsOneWhateverTheSenseOfThePalette) {
    PngSpec spec;
    spec.depth = 1;
    spec.colourType = PNG_COLOR_TYPE_PALETTE;
    spec.blackAndWhite = true;
    const Raster raster = PageCodecs().decode(makePng(spec));
    EXPECT_EQ(raster.bilevelColours, (std::array<uint32_t, 2>{0xFFFFFF, 0}));
    EXPECT_EQ(raster.row(0)[0], 0xC1); // x % 7 < 2, the darker colour being index 1
}

TEST(Png, Resolution) {
    PngSpec spec;
    spec.resolutionUnit = PNG_RESOLUTION_METER;
    spec.xResolution = 11811;
    spec.yResolution = 7874;
    Raster raster = PageCodecs().decode(makePng(spec));
    EXPECT_NEAR(raster.xResolution, 300, 0.01);
    EXPECT_NEAR(raster.yResolution, 200, 0.01);
    spec.resolutionUnit = PNG_RESOLUTION_UNKNOWN;
    raster = PageCodecs().decode(makePng(spec));
    EXPECT_NEAR(raster.xResolution, 144, 0.01);
    EXPECT_NEAR(raster.yResolution, 96, 0.01);
}

} // namespace
} // namespace pixmo
