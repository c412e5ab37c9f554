#include "codecs/pagecodecs.h"
#include "core/base/error.h"
#include "tests/codecs/pattern.h"
#include "tests/codecs/sampletiff.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace pixmo {
namespace {

std::string problemOf(const std::vector<uint8_t>& bytes, const DecodeLimits& limits = {}) {
    try {
        PageCodecs(limits).decode(bytes);
        return {};
    } catch (const Error& error) {
        EXPECT_EQ(error.Number, error_number::InvalidPicture);
        return error.Description;
    }
}

struct Coding {
    int compression;
    uint32_t options;
};

constexpr std::array Codings = {
    Coding{COMPRESSION_NONE, 0},
    Coding{COMPRESSION_PACKBITS, 0},
    Coding{COMPRESSION_LZW, 0},
    Coding{COMPRESSION_ADOBE_DEFLATE, 0},
    Coding{COMPRESSION_CCITTRLE, 0},
    Coding{COMPRESSION_CCITTFAX3, 0},
    Coding{COMPRESSION_CCITTFAX3, GROUP3OPT_2DENCODING},
    Coding{COMPRESSION_CCITTFAX4, 0},
};

TiffSpec specOf(const Coding& coding) {
    TiffSpec spec;
    spec.compression = static_cast<uint16_t>(coding.compression);
    spec.faxOptions = coding.options;
    return spec;
}

/// The header is right, but the strip itself ends early: only the decoder can notice.
TEST(TiffDamage, AStripThatEndsEarlyIsRefused) {
    for (const Coding& coding : Codings) {
        const TiffSpec spec = specOf(coding);
        const auto strip = storedStrip(makeTiff(spec));
        const Raster whole = PageCodecs().decode(wrapStrip(spec, strip));
        size_t refused = 0;
        for (size_t length = 1; length < strip.size(); ++length) {
            const auto bytes =
                wrapStrip(spec, {strip.begin(), strip.begin() + static_cast<std::ptrdiff_t>(length)});
            const std::string problem = problemOf(bytes);
            if (problem.empty())
                EXPECT_EQ(PageCodecs().decode(bytes).pixels, whole.pixels)
                    << coding.compression << '/' << coding.options << " cut at " << length << " of "
                    << strip.size();
            else
                ++refused;
        }
        // What follows the last row (an end mark, fill bits) may be missing.
        EXPECT_GE(refused + 6, strip.size()) << coding.compression;
    }
}

TEST(TiffDamage, TheRowsThatAreThereAreTold) {
    const TiffSpec spec = specOf({COMPRESSION_CCITTFAX4, 0});
    auto strip = storedStrip(makeTiff(spec));
    strip.resize(strip.size() / 2);
    EXPECT_THAT(problemOf(wrapStrip(spec, strip)),
                testing::MatchesRegex("The TIFF page is damaged or cut short after row 1.: .*"));
}

/// Fewer rows than the header says, properly ended.
TEST(TiffDamage, APageWithoutItsLastRowIsRefused) {
    for (const Coding& coding : Codings) {
        TiffSpec spec = specOf(coding);
        const auto strip = storedStrip(makeTiff(spec));
        ++spec.height;
        EXPECT_NE(problemOf(wrapStrip(spec, strip)), "") << coding.compression << '/' << coding.options;
    }
}

TEST(TiffDamage, AFaxRowMayBeLostButNotWhatFollowsIt) {
    struct Case {
        Coding coding;
        bool shown;
    };
    for (const Case& c : {Case{{COMPRESSION_CCITTFAX3, 0}, true}, Case{{COMPRESSION_CCITTFAX4, 0}, false},
                          Case{{COMPRESSION_CCITTRLE, 0}, false}}) {
        const TiffSpec spec = specOf(c.coding);
        const auto strip = storedStrip(makeTiff(spec));
        const Raster whole = PageCodecs().decode(wrapStrip(spec, strip));
        size_t shown = 0;
        size_t damagedRows = 0;
        for (size_t at = strip.size() / 4; at < strip.size() / 2; ++at) {
            auto damaged = strip;
            damaged[at] ^= 0x18;
            const auto bytes = wrapStrip(spec, damaged);
            if (!problemOf(bytes).empty())
                continue;
            ++shown;
            const Raster raster = PageCodecs().decode(bytes);
            for (int32_t y = 0; y < raster.height; ++y)
                damagedRows += std::ranges::equal(raster.row(y), whole.row(y)) ? 0U : 1U;
        }
        if (c.shown) {
            EXPECT_GT(shown, strip.size() / 8) << c.coding.compression;
            EXPECT_LE(damagedRows, shown * 2) << c.coding.compression;
        }
    }
}

struct Header {
    uint32_t width = 37;
    uint32_t height = 29;
    uint32_t bits = 1;
    uint32_t samples = 1;
    uint32_t compression = COMPRESSION_NONE;
    uint32_t photometric = PHOTOMETRIC_MINISWHITE;
    uint32_t rowsPerStrip = 29;
    uint32_t stripOffset = 0; ///< 0: where the data are
    uint32_t stripBytes = 5 * 29;
};

std::vector<uint8_t> build(const Header& header, uint32_t nextDirectory = 0) {
    constexpr size_t Entries = 9;
    const uint32_t at = tiffDataOffset(Entries);
    return buildTiff({{TIFFTAG_IMAGEWIDTH, TIFF_LONG, 1, header.width},
                      {TIFFTAG_IMAGELENGTH, TIFF_LONG, 1, header.height},
                      {TIFFTAG_BITSPERSAMPLE, TIFF_SHORT, 1, header.bits},
                      {TIFFTAG_COMPRESSION, TIFF_SHORT, 1, header.compression},
                      {TIFFTAG_PHOTOMETRIC, TIFF_SHORT, 1, header.photometric},
                      {TIFFTAG_STRIPOFFSETS, TIFF_LONG, 1, header.stripOffset == 0 ? at : header.stripOffset},
                      {TIFFTAG_SAMPLESPERPIXEL, TIFF_SHORT, 1, header.samples},
                      {TIFFTAG_ROWSPERSTRIP, TIFF_LONG, 1, header.rowsPerStrip},
                      {TIFFTAG_STRIPBYTECOUNTS, TIFF_LONG, 1, header.stripBytes}},
                     std::vector<uint8_t>(5 * 29, 0xA5), nextDirectory);
}

TEST(TiffDamage, AbsurdHeaders) {
    using testing::HasSubstr;
    EXPECT_EQ(problemOf(build({})), "");
    // The directory of the first page names itself as the next one.
    EXPECT_EQ(problemOf(build({}, 8)), "");
    EXPECT_THAT(problemOf(build({.width = 0})), HasSubstr("0 x 29"));
    EXPECT_THAT(problemOf(build({.height = 0})), HasSubstr("37 x 0"));
    EXPECT_THAT(problemOf(build({.width = 0x80000000})),
                HasSubstr("2147483648 x 29 pixels are above the limit"));
    EXPECT_THAT(problemOf(build({.width = 0x7FFFFFFF, .height = 0x7FFFFFFF})), HasSubstr("above the limit"));
    EXPECT_THAT(problemOf(build({.rowsPerStrip = 0})), testing::Not(""));
    EXPECT_THAT(problemOf(build({.height = 5'000'000, .rowsPerStrip = 1})), testing::Not(""));
    EXPECT_THAT(problemOf(build({.stripOffset = 200})), HasSubstr("is not in the file"));
    EXPECT_THAT(problemOf(build({.stripOffset = 0xFFFFFFFF})), HasSubstr("is not in the file"));
    EXPECT_THAT(problemOf(build({.compression = COMPRESSION_LZW, .stripBytes = 0xFFFFFFFF})),
                HasSubstr("is not in the file"));
    // The size of plain rows is known, whatever the strip's length claims to be.
    EXPECT_EQ(problemOf(build({.stripBytes = 5 * 28})), "");
    EXPECT_THAT(problemOf(build({.compression = 4711})), HasSubstr("unknown compression: 4711"));
    EXPECT_THAT(problemOf(build({.bits = 0})), testing::Not(""));
    EXPECT_THAT(problemOf(build({.bits = 64})), testing::Not(""));
    EXPECT_THAT(problemOf(build({.samples = 17, .stripBytes = 29 * 80})), HasSubstr("17 samples"));
    EXPECT_THAT(problemOf(build({.samples = 60000})), testing::Not(""));
    EXPECT_THAT(problemOf(build({.photometric = PHOTOMETRIC_PALETTE})), testing::Not(""));
    EXPECT_THAT(problemOf(build({.photometric = 77})), testing::Not(""));
}

TEST(TiffDamage, TilesFarLargerThanThePage) {
    constexpr size_t Entries = 9;
    const auto bytes = buildTiff({{TIFFTAG_IMAGEWIDTH, TIFF_LONG, 1, 16},
                                  {TIFFTAG_IMAGELENGTH, TIFF_LONG, 1, 16},
                                  {TIFFTAG_BITSPERSAMPLE, TIFF_SHORT, 1, 1},
                                  {TIFFTAG_COMPRESSION, TIFF_SHORT, 1, COMPRESSION_CCITTFAX4},
                                  {TIFFTAG_PHOTOMETRIC, TIFF_SHORT, 1, PHOTOMETRIC_MINISWHITE},
                                  {TIFFTAG_TILEWIDTH, TIFF_LONG, 1, 65536},
                                  {TIFFTAG_TILELENGTH, TIFF_LONG, 1, 65536},
                                  {TIFFTAG_TILEOFFSETS, TIFF_LONG, 1, tiffDataOffset(Entries)},
                                  {TIFFTAG_TILEBYTECOUNTS, TIFF_LONG, 1, 4}},
                                 {1, 2, 3, 4});
    EXPECT_THAT(problemOf(bytes), testing::HasSubstr("far larger than itself"));
}

} // namespace
} // namespace pixmo
