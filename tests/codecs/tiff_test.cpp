#include "codecs/pagecodecs.h"
#include "core/base/error.h"
#include "tests/codecs/pattern.h"
#include "tests/codecs/samplejpeg.h"
#include "tests/codecs/sampletiff.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <initializer_list>

namespace pixmo {
namespace {

/// Values of 16-bit tags to try one after the other.
using Words = std::initializer_list<uint16_t>;

std::string describe(const TiffSpec& spec) {
    return "compression " + std::to_string(spec.compression) + ", options " +
           std::to_string(spec.faxOptions) + ", " + std::to_string(spec.samples) + " x " +
           std::to_string(spec.bits) + " bits, photometric " + std::to_string(spec.photometric) + ", strip " +
           std::to_string(spec.rowsPerStrip) + ", tile " + std::to_string(spec.tile) + ", fill " +
           std::to_string(spec.fillOrder) + ", orientation " + std::to_string(spec.orientation) +
           (spec.separate ? ", separate" : "") + ", mode " + spec.mode;
}

/// A sample stretched to 0..255.
uint32_t level(const TiffSpec& spec, uint32_t x, uint32_t y, uint32_t channel) {
    const uint64_t last = (uint64_t{1} << spec.bits) - 1;
    const uint64_t sample = patternSample(x, y, channel, spec.bits);
    return static_cast<uint32_t>((sample * 255 * 2 + last) / (last * 2));
}

uint32_t blended(const TiffSpec& spec, uint32_t value, uint32_t alpha) {
    if (spec.extraKind == EXTRASAMPLE_UNASSALPHA)
        return (value * alpha * 2 + 255) / 510 + 255 - alpha;
    if (spec.extraKind == EXTRASAMPLE_ASSOCALPHA)
        return std::min(255U, value + 255 - alpha);
    return value;
}

uint32_t expectedColour(const TiffSpec& spec, uint32_t x, uint32_t y) {
    std::array<uint32_t, 3> rgb{};
    switch (spec.photometric) {
    case PHOTOMETRIC_PALETTE:
        return tiffMapColour(patternSample(x, y, 0, spec.bits));
    case PHOTOMETRIC_RGB:
    case PHOTOMETRIC_YCBCR:
        for (uint32_t channel = 0; channel < 3; ++channel)
            rgb[channel] = level(spec, x, y, channel);
        break;
    case PHOTOMETRIC_SEPARATED:
        for (uint32_t channel = 0; channel < 3; ++channel)
            rgb[channel] =
                ((255 - level(spec, x, y, channel)) * (255 - level(spec, x, y, 3)) * 2 + 255) / 510;
        break;
    default:
        rgb.fill(spec.photometric == PHOTOMETRIC_MINISWHITE ? 255 - level(spec, x, y, 0)
                                                            : level(spec, x, y, 0));
    }
    const uint32_t colours = spec.photometric == PHOTOMETRIC_RGB ? 3 : 1;
    if (spec.samples > colours && spec.photometric != PHOTOMETRIC_SEPARATED &&
        spec.photometric != PHOTOMETRIC_YCBCR)
        for (uint32_t& channel : rgb)
            channel = blended(spec, channel, level(spec, x, y, colours));
    return rgb[0] << 16 | rgb[1] << 8 | rgb[2];
}

PixelFormat expectedFormat(const TiffSpec& spec) {
    const bool gray = spec.photometric <= PHOTOMETRIC_MINISBLACK;
    if (spec.bits == 1 && spec.samples == 1)
        return PixelFormat::Bilevel;
    return gray ? PixelFormat::Gray : PixelFormat::Rgb;
}

/// Where the stored pixel (x, y) is seen.
std::pair<uint32_t, uint32_t> seenAt(const TiffSpec& spec, uint32_t x, uint32_t y) {
    const uint32_t right = spec.width - 1 - x;
    const uint32_t bottom = spec.height - 1 - y;
    switch (spec.orientation) {
    case ORIENTATION_TOPRIGHT:
        return {right, y};
    case ORIENTATION_BOTRIGHT:
        return {right, bottom};
    case ORIENTATION_BOTLEFT:
        return {x, bottom};
    case ORIENTATION_LEFTTOP:
        return {y, x};
    case ORIENTATION_RIGHTTOP:
        return {bottom, x};
    case ORIENTATION_RIGHTBOT:
        return {bottom, right};
    case ORIENTATION_LEFTBOT:
        return {y, right};
    default:
        return {x, y};
    }
}

void expectDecodes(const TiffSpec& spec, uint32_t tolerance = 0) {
    SCOPED_TRACE(describe(spec));
    const auto bytes = makeTiff(spec);
    ASSERT_FALSE(bytes.empty());
    const Raster raster = PageCodecs().decode(bytes);
    ASSERT_EQ(raster.format, expectedFormat(spec));
    const bool turned = spec.orientation >= ORIENTATION_LEFTTOP;
    ASSERT_EQ(raster.width, static_cast<int32_t>(turned ? spec.height : spec.width));
    ASSERT_EQ(raster.height, static_cast<int32_t>(turned ? spec.width : spec.height));
    EXPECT_EQ(raster.bitsPerPixel, spec.bits * spec.samples);
    EXPECT_TRUE(hasCleanMargins(raster));
    for (uint32_t y = 0; y < spec.height; ++y)
        for (uint32_t x = 0; x < spec.width; ++x) {
            const auto [seenX, seenY] = seenAt(spec, x, y);
            const uint32_t seen = colourAt(raster, seenX, seenY);
            const uint32_t expected = expectedColour(spec, x, y);
            for (int shift = 0; shift <= 16; shift += 8)
                ASSERT_LE(std::abs(static_cast<int>(seen >> shift & 255) -
                                   static_cast<int>(expected >> shift & 255)),
                          static_cast<int>(tolerance))
                    << "at " << x << ", " << y << ": " << std::hex << seen << " for " << expected;
        }
}

/// Runs `check` on one strip, several strips, and tiles, in both orders of bits.
template <typename Check>
void forEachStorage(TiffSpec spec, Check check) {
    for (const uint16_t fillOrder : Words{FILLORDER_MSB2LSB, FILLORDER_LSB2MSB})
        for (const uint32_t rowsPerStrip : {0U, 8U, 1U}) {
            spec.fillOrder = fillOrder;
            spec.rowsPerStrip = rowsPerStrip;
            check(spec);
        }
    spec.tile = 16;
    check(spec);
}

constexpr std::array Lossless = {COMPRESSION_NONE, COMPRESSION_PACKBITS, COMPRESSION_LZW,
                                 COMPRESSION_ADOBE_DEFLATE};

TEST(Tiff, BilevelOfEveryCoding) {
    struct Coding {
        int compression;
        uint32_t options;
    };
    constexpr std::array Fax = {Coding{COMPRESSION_CCITTRLE, 0}, Coding{COMPRESSION_CCITTFAX3, 0},
                                Coding{COMPRESSION_CCITTFAX3, GROUP3OPT_2DENCODING},
                                Coding{COMPRESSION_CCITTFAX3, GROUP3OPT_FILLBITS},
                                Coding{COMPRESSION_CCITTFAX4, 0}};
    std::vector<Coding> codings(Fax.begin(), Fax.end());
    for (const int compression : Lossless)
        codings.push_back({compression, 0});
    for (const Coding& coding : codings)
        for (const uint16_t photometric : Words{PHOTOMETRIC_MINISWHITE, PHOTOMETRIC_MINISBLACK}) {
            TiffSpec spec;
            spec.compression = static_cast<uint16_t>(coding.compression);
            spec.faxOptions = coding.options;
            spec.photometric = photometric;
            if (TIFFIsCODECConfigured(spec.compression) == 0)
                continue;
            forEachStorage(spec, [](const TiffSpec& stored) { expectDecodes(stored); });
        }
}

TEST(Tiff, InkIsOneWhateverTheSenseOfTheBits) {
    for (const uint16_t photometric : Words{PHOTOMETRIC_MINISWHITE, PHOTOMETRIC_MINISBLACK}) {
        TiffSpec spec;
        spec.photometric = photometric;
        const Raster raster = PageCodecs().decode(makeTiff(spec));
        EXPECT_EQ(raster.bilevelColours, (std::array<uint32_t, 2>{0xFFFFFF, 0x000000}));
    }
    TiffSpec map;
    map.photometric = PHOTOMETRIC_PALETTE;
    const Raster raster = PageCodecs().decode(makeTiff(map));
    EXPECT_EQ(raster.bilevelColours, (std::array<uint32_t, 2>{tiffMapColour(1), tiffMapColour(0)}));
}

TEST(Tiff, EveryDepthAndColour) {
    struct Pixel {
        uint16_t photometric;
        uint16_t bits;
        uint16_t samples;
    };
    for (const Pixel& pixel :
         {Pixel{PHOTOMETRIC_MINISWHITE, 2, 1}, Pixel{PHOTOMETRIC_MINISBLACK, 4, 1},
          Pixel{PHOTOMETRIC_MINISWHITE, 4, 1}, Pixel{PHOTOMETRIC_MINISBLACK, 8, 1},
          Pixel{PHOTOMETRIC_MINISWHITE, 8, 1}, Pixel{PHOTOMETRIC_MINISBLACK, 16, 1},
          Pixel{PHOTOMETRIC_PALETTE, 1, 1}, Pixel{PHOTOMETRIC_PALETTE, 2, 1},
          Pixel{PHOTOMETRIC_PALETTE, 4, 1}, Pixel{PHOTOMETRIC_PALETTE, 8, 1}, Pixel{PHOTOMETRIC_RGB, 4, 3},
          Pixel{PHOTOMETRIC_RGB, 8, 3}, Pixel{PHOTOMETRIC_RGB, 16, 3}, Pixel{PHOTOMETRIC_RGB, 8, 4},
          Pixel{PHOTOMETRIC_SEPARATED, 8, 4}, Pixel{PHOTOMETRIC_SEPARATED, 8, 5}})
        for (const int compression : Lossless)
            for (const bool separate : {false, true}) {
                TiffSpec spec;
                spec.photometric = pixel.photometric;
                spec.bits = pixel.bits;
                spec.samples = pixel.samples;
                spec.compression = static_cast<uint16_t>(compression);
                spec.separate = separate;
                if (TIFFIsCODECConfigured(spec.compression) == 0)
                    continue;
                // Deep samples are mapped to 8 bits; one level of rounding is free.
                const uint32_t tolerance = pixel.bits > 8 ? 1 : 0;
                forEachStorage(spec, [&](const TiffSpec& stored) { expectDecodes(stored, tolerance); });
            }
}

TEST(Tiff, RarerCodings) {
    for (const int compression : {COMPRESSION_DEFLATE, COMPRESSION_LZMA, COMPRESSION_ZSTD}) {
        TiffSpec spec;
        spec.compression = static_cast<uint16_t>(compression);
        if (TIFFIsCODECConfigured(spec.compression) == 0)
            continue;
        expectDecodes(spec);
        spec.bits = 8;
        spec.samples = 3;
        spec.photometric = PHOTOMETRIC_RGB;
        spec.tile = 16;
        expectDecodes(spec);
    }
}

TEST(Tiff, AlphaLiesOnWhite) {
    for (const uint16_t photometric : Words{PHOTOMETRIC_MINISBLACK, PHOTOMETRIC_RGB})
        for (const uint16_t kind :
             Words{EXTRASAMPLE_UNASSALPHA, EXTRASAMPLE_ASSOCALPHA, EXTRASAMPLE_UNSPECIFIED})
            for (const bool separate : {false, true}) {
                TiffSpec spec;
                spec.photometric = photometric;
                spec.bits = 8;
                spec.samples = photometric == PHOTOMETRIC_RGB ? 4 : 2;
                spec.extraKind = kind;
                spec.separate = separate;
                expectDecodes(spec, 1);
            }
}

TEST(Tiff, EveryOrientation) {
    for (uint16_t orientation = 1; orientation <= 8; ++orientation)
        for (const uint16_t bits : Words{1, 8})
            for (const uint16_t samples : Words{1, 3}) {
                TiffSpec spec;
                spec.bits = bits;
                spec.samples = bits == 1 ? uint16_t{1} : samples;
                spec.photometric = spec.samples == 3 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK;
                spec.orientation = orientation;
                for (const uint32_t width : {1U, 8U, 37U, 70U}) {
                    spec.width = width;
                    expectDecodes(spec);
                }
            }
}

TEST(Tiff, BytesOrderBigFilesAndLaterPages) {
    for (const char* mode : {"wl", "wb", "w8", "w8b"}) {
        TiffSpec spec;
        spec.mode = mode;
        spec.pages = 3;
        for (const uint16_t bits : Words{1, 16}) {
            spec.bits = bits;
            expectDecodes(spec, 1);
        }
    }
}

TEST(Tiff, JpegStripsAndTiles) {
    for (const uint16_t photometric : Words{PHOTOMETRIC_MINISBLACK, PHOTOMETRIC_RGB, PHOTOMETRIC_YCBCR})
        for (const uint32_t tile : {0U, 16U}) {
            TiffSpec spec;
            spec.photometric = photometric;
            spec.bits = 8;
            spec.samples = photometric == PHOTOMETRIC_MINISBLACK ? 1 : 3;
            spec.compression = COMPRESSION_JPEG;
            spec.rowsPerStrip = 16;
            spec.tile = tile;
            // Noise through 4:2:0: the lightness is what is left to compare.
            if (photometric != PHOTOMETRIC_YCBCR) {
                expectDecodes(spec, 12);
                continue;
            }
            const Raster raster = PageCodecs().decode(makeTiff(spec));
            EXPECT_EQ(raster.format, PixelFormat::Rgb);
            EXPECT_EQ(raster.bitsPerPixel, 24);
        }
}

TEST(Tiff, OldStyleJpeg) {
    const JpegSpec inner;
    const auto stream = makeJpeg(inner);
    constexpr size_t Entries = 11;
    const auto length = static_cast<uint32_t>(stream.size());
    const uint32_t at = tiffDataOffset(Entries);
    auto data = stream;
    data.insert(data.end(), {8, 0, 8, 0, 8, 0});
    const auto bytes = buildTiff({{TIFFTAG_IMAGEWIDTH, TIFF_LONG, 1, inner.width},
                                  {TIFFTAG_IMAGELENGTH, TIFF_LONG, 1, inner.height},
                                  {TIFFTAG_BITSPERSAMPLE, TIFF_SHORT, 3, at + length},
                                  {TIFFTAG_COMPRESSION, TIFF_SHORT, 1, COMPRESSION_OJPEG},
                                  {TIFFTAG_PHOTOMETRIC, TIFF_SHORT, 1, PHOTOMETRIC_YCBCR},
                                  {TIFFTAG_STRIPOFFSETS, TIFF_LONG, 1, at},
                                  {TIFFTAG_SAMPLESPERPIXEL, TIFF_SHORT, 1, 3},
                                  {TIFFTAG_ROWSPERSTRIP, TIFF_LONG, 1, inner.height},
                                  {TIFFTAG_STRIPBYTECOUNTS, TIFF_LONG, 1, length},
                                  {TIFFTAG_JPEGIFOFFSET, TIFF_LONG, 1, at},
                                  {TIFFTAG_JPEGIFBYTECOUNT, TIFF_LONG, 1, length}},
                                 data);
    const Raster raster = PageCodecs().decode(bytes);
    ASSERT_EQ(raster.width, static_cast<int32_t>(inner.width));
    ASSERT_EQ(raster.height, static_cast<int32_t>(inner.height));
    // The old way spreads the colours of four pixels without smoothing them.
    for (uint32_t y = 0; y < inner.height; ++y)
        for (uint32_t x = 0; x < inner.width; ++x)
            for (uint32_t channel = 0; channel < 3; ++channel)
                ASSERT_NEAR(static_cast<int>(colourAt(raster, x, y) >> (16 - 8 * channel) & 255),
                            static_cast<int>(jpegLevel(x, y, channel)), 16)
                    << "at " << x << ", " << y;

    auto cut = bytes;
    std::fill(cut.begin() + static_cast<std::ptrdiff_t>(at + 600),
              cut.begin() + static_cast<std::ptrdiff_t>(at + length), uint8_t{0});
    EXPECT_THROW(PageCodecs().decode(cut), Error);
}

TEST(Tiff, Resolution) {
    struct Case {
        uint16_t unit;
        float x;
        float y;
        uint16_t orientation;
        double seenX;
        double seenY;
    };
    for (const Case& c :
         {Case{0, 0, 0, 1, 96, 96}, Case{RESUNIT_INCH, 204, 98, 1, 204, 98},
          Case{RESUNIT_INCH, 204, 98, 6, 98, 204}, Case{RESUNIT_INCH, 204, 98, 3, 204, 98},
          Case{RESUNIT_CENTIMETER, 100, 50, 1, 254, 127}, Case{RESUNIT_NONE, 2, 1, 1, 192, 96},
          Case{RESUNIT_NONE, 1, 1, 1, 96, 96}, Case{RESUNIT_INCH, 300, 0, 1, 300, 300},
          Case{RESUNIT_INCH, 1, 1, 1, 96, 96}, Case{RESUNIT_INCH, 1e9F, 1e9F, 1, 96, 96},
          Case{RESUNIT_INCH, 10, 10000, 1, 96, 96}}) {
        TiffSpec spec;
        spec.resolutionUnit = c.unit;
        spec.xResolution = c.x;
        spec.yResolution = c.y;
        spec.orientation = c.orientation;
        const Raster raster = PageCodecs().decode(makeTiff(spec));
        EXPECT_NEAR(raster.xResolution, c.seenX, 0.01) << c.unit << ' ' << c.x;
        EXPECT_NEAR(raster.yResolution, c.seenY, 0.01) << c.unit << ' ' << c.y;
    }
}

} // namespace
} // namespace pixmo
