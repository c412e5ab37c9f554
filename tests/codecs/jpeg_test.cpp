#include "codecs/pagecodecs.h"
#include "core/base/error.h"
#include "tests/codecs/pattern.h"
#include "tests/codecs/samplejpeg.h"
#include "tests/codecs/sampletiff.h"

#include <gtest/gtest.h>

#include <array>

namespace pixmo {
namespace {

using Colours = JpegSpec::Colours;

uint32_t expectedLevel(const JpegSpec& spec, uint32_t x, uint32_t y, uint32_t channel) {
    if (spec.colours == Colours::Gray)
        return jpegLevel(x, y, 0);
    if (spec.colours == Colours::Cmyk || spec.colours == Colours::Ycck)
        return (255 - jpegLevel(x, y, channel)) * (255 - jpegLevel(x, y, 3)) / 255;
    return jpegLevel(x, y, channel);
}

void expectDecodes(const JpegSpec& spec, PixelFormat format, int32_t bits) {
    const Raster raster = PageCodecs().decode(makeJpeg(spec));
    ASSERT_EQ(raster.format, format);
    ASSERT_EQ(raster.width, static_cast<int32_t>(spec.width));
    ASSERT_EQ(raster.height, static_cast<int32_t>(spec.height));
    EXPECT_EQ(raster.bitsPerPixel, bits);
    for (uint32_t y = 0; y < spec.height; ++y)
        for (uint32_t x = 0; x < spec.width; ++x)
            for (uint32_t channel = 0; channel < 3; ++channel)
                ASSERT_NEAR(static_cast<int>(colourAt(raster, x, y) >> (16 - 8 * channel) & 255),
                            static_cast<int>(expectedLevel(spec, x, y, channel)), 6)
                    << "at " << x << ", " << y;
}

TEST(Jpeg, EveryColourSpaceAndProcess) {
    struct Process {
        bool progressive;
        bool arithmetic;
        uint32_t restartRows;
    };
    for (const Process& process : {Process{false, false, 0}, Process{true, false, 0}, Process{false, true, 0},
                                   Process{true, true, 0}, Process{false, false, 1}})
        for (const bool adobe : {true, false})
            for (const Colours colours :
                 {Colours::Gray, Colours::YCbCr, Colours::Rgb, Colours::Cmyk, Colours::Ycck}) {
                // Without the marker nothing says that the four colours are YCCK, or the three are RGB.
                if (!adobe && (colours == Colours::Ycck || colours == Colours::Rgb))
                    continue;
                SCOPED_TRACE(testing::Message() << "colours " << static_cast<int>(colours) << ", progressive "
                                                << process.progressive << ", arithmetic "
                                                << process.arithmetic << ", adobe " << adobe);
                JpegSpec spec;
                spec.colours = colours;
                spec.progressive = process.progressive;
                spec.arithmetic = process.arithmetic;
                spec.restartRows = process.restartRows;
                spec.adobe = adobe;
                const bool inks = colours == Colours::Cmyk || colours == Colours::Ycck;
                const bool gray = colours == Colours::Gray;
                expectDecodes(spec, gray ? PixelFormat::Gray : PixelFormat::Rgb, inks ? 32 : gray ? 8 : 24);
            }
}

std::vector<uint8_t> exifBlock(uint16_t orientation, uint32_t xResolution, uint32_t yResolution,
                               uint16_t unit) {
    constexpr size_t Entries = 4;
    const uint32_t at = tiffDataOffset(Entries);
    std::vector<uint8_t> rationals;
    for (const uint32_t value : {xResolution, 1U, yResolution, 1U})
        for (int shift = 0; shift < 32; shift += 8)
            rationals.push_back(static_cast<uint8_t>(value >> shift));
    return buildTiff({{TIFFTAG_ORIENTATION, TIFF_SHORT, 1, orientation},
                      {TIFFTAG_XRESOLUTION, TIFF_RATIONAL, 1, at},
                      {TIFFTAG_YRESOLUTION, TIFF_RATIONAL, 1, at + 8},
                      {TIFFTAG_RESOLUTIONUNIT, TIFF_SHORT, 1, unit}},
                     rationals);
}

TEST(Jpeg, ResolutionOfJfifThenOfExif) {
    struct Case {
        bool jfif;
        uint8_t unit;
        uint16_t x;
        uint16_t y;
        bool exif;
        double seenX;
        double seenY;
    };
    for (const Case& c : {Case{true, 1, 300, 200, false, 300, 200}, Case{true, 2, 100, 50, false, 254, 127},
                          Case{true, 0, 2, 1, false, 192, 96}, Case{true, 1, 300, 200, true, 300, 200},
                          Case{true, 0, 1, 1, true, 381, 254}, Case{false, 0, 1, 1, true, 381, 254},
                          Case{false, 0, 1, 1, false, 96, 96}, Case{true, 1, 0, 0, false, 96, 96}}) {
        JpegSpec spec;
        spec.jfif = c.jfif;
        spec.densityUnit = c.unit;
        spec.xDensity = c.x;
        spec.yDensity = c.y;
        if (c.exif)
            spec.exif = exifBlock(1, 150, 100, RESUNIT_CENTIMETER);
        const Raster raster = PageCodecs().decode(makeJpeg(spec));
        EXPECT_NEAR(raster.xResolution, c.seenX, 0.01);
        EXPECT_NEAR(raster.yResolution, c.seenY, 0.01);
    }
}

TEST(Jpeg, ExifTurnsThePage) {
    JpegSpec spec;
    spec.exif = exifBlock(6, 300, 200, RESUNIT_INCH);
    spec.jfif = false;
    const Raster raster = PageCodecs().decode(makeJpeg(spec));
    ASSERT_EQ(raster.width, static_cast<int32_t>(spec.height));
    EXPECT_EQ(raster.xResolution, 200);
    EXPECT_EQ(raster.yResolution, 300);
    // The first stored pixel is the upper right one that is seen.
    EXPECT_NEAR(static_cast<int>(raster.row(0)[size_t{spec.height - 1} * 3]),
                static_cast<int>(jpegLevel(0, 0, 0)), 6);
    EXPECT_NEAR(static_cast<int>(raster.row(raster.height - 1)[0]),
                static_cast<int>(jpegLevel(spec.width - 1, spec.height - 1, 0)), 6);
}

TEST(Jpeg, DamagedExifCostsOnlyFacts) {
    for (size_t length = 0; length < 40; ++length) {
        JpegSpec spec;
        spec.exif = exifBlock(6, 300, 200, RESUNIT_INCH);
        spec.exif.resize(length);
        EXPECT_FALSE(PageCodecs().decode(makeJpeg(spec)).empty());
    }
}

TEST(Jpeg, NoEndMarker) {
    // The one scan of a baseline picture says itself whether it is whole.
    JpegSpec spec;
    auto bytes = makeJpeg(spec);
    const Raster whole = PageCodecs().decode(bytes);
    bytes.resize(bytes.size() - 2);
    EXPECT_EQ(PageCodecs().decode(bytes).pixels, whole.pixels);
    for (const bool arithmetic : {true, false}) {
        spec.arithmetic = arithmetic;
        spec.progressive = !arithmetic;
        bytes = makeJpeg(spec);
        bytes.resize(bytes.size() - 2);
        EXPECT_THROW(PageCodecs().decode(bytes), Error);
    }
}

} // namespace
} // namespace pixmo
