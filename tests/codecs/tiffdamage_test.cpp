#include "codecs/pagecodecs.h"
#include "core/base/error.h"
#include "tests/codecs/pattern.h"
#include "tests/codecs/pictures.h"

#include <tiffio.h>

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

/// A page of one strip whose directory is laid out as that of buildTiff, ten entries, the strip at its end.
class StripFile {
public:
    explicit StripFile(const std::string& coding) : bytes_(storedBytes("tiff-strip-" + coding + ".tif")) {}

    size_t length() const { return bytes_.size() - Start; }
    const std::vector<uint8_t>& bytes() const { return bytes_; }
    std::vector<uint8_t> cutTo(size_t length) const {
        auto bytes = bytes_;
        bytes.resize(Start + length);
        put(bytes, 8, length);
        return bytes;
    }
    std::vector<uint8_t> higher() const {
        auto bytes = bytes_;
        put(bytes, 1, 30);
        put(bytes, 7, 30);
        return bytes;
    }
    std::vector<uint8_t> damagedAt(size_t at) const {
        auto bytes = bytes_;
        bytes[Start + at] ^= 0x18;
        return bytes;
    }

private:
    static constexpr size_t Start = 134;

    /// Entry 1 is the height, 7 the rows of the strip, 8 its length.
    static void put(std::vector<uint8_t>& bytes, size_t entry, size_t value) {
        bytes[10 + 12 * entry + 8] = static_cast<uint8_t>(value);
        bytes[10 + 12 * entry + 9] = static_cast<uint8_t>(value >> 8);
    }

    std::vector<uint8_t> bytes_;
};

constexpr std::array Codings = {"plain", "packbits", "lzw", "deflate", "rle", "g3", "g3-2d", "g4"};

/// The header is right, but the strip itself ends early: only the decoder can notice.
TEST(TiffDamage, AStripThatEndsEarlyIsRefused) {
    for (const std::string coding : Codings) {
        const StripFile file(coding);
        const Raster whole = PageCodecs().decode(file.bytes());
        size_t refused = 0;
        for (size_t length = 1; length < file.length(); ++length) {
            const auto bytes = file.cutTo(length);
            if (problemOf(bytes).empty())
                EXPECT_EQ(PageCodecs().decode(bytes).pixels, whole.pixels)
                    << coding << " cut at " << length << " of " << file.length();
            else
                ++refused;
        }
        // What follows the last row (an end mark, fill bits) may be missing.
        EXPECT_GE(refused + 6, file.length()) << coding;
    }
}

TEST(TiffDamage, TheRowsThatAreThereAreTold) {
    const StripFile file("g4");
    EXPECT_THAT(problemOf(file.cutTo(file.length() / 2)),
                testing::MatchesRegex("The TIFF page is damaged or cut short after row 1.: .*"));
}

/// Fewer rows than the header says, properly ended.
TEST(TiffDamage, APageWithoutItsLastRowIsRefused) {
    for (const std::string coding : Codings)
        EXPECT_NE(problemOf(StripFile(coding).higher()), "") << coding;
}

TEST(TiffDamage, AFaxRowMayBeLostButNotWhatFollowsIt) {
    const StripFile file("g3");
    const Raster whole = PageCodecs().decode(file.bytes());
    size_t shown = 0;
    size_t damagedRows = 0;
    for (size_t at = file.length() / 4; at < file.length() / 2; ++at) {
        const auto bytes = file.damagedAt(at);
        if (!problemOf(bytes).empty())
            continue;
        ++shown;
        const Raster raster = PageCodecs().decode(bytes);
        for (int32_t y = 0; y < raster.height; ++y)
            damagedRows += std::ranges::equal(raster.row(y), whole.row(y)) ? 0U : 1U;
    }
    EXPECT_GT(shown, file.length() / 8);
    EXPECT_LE(damagedRows, shown * 2);
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

/// One entry of a directory written by hand.
struct TiffEntry {
    uint16_t tag;
    uint16_t type;
    uint32_t count;
    uint32_t value;
};

uint32_t tiffDataOffset(size_t entries) {
    return static_cast<uint32_t>(8 + 2 + entries * 12 + 4);
}

/// A little-endian TIFF: header, one directory, then `data`, which begins at tiffDataOffset(entries).
std::vector<uint8_t> buildTiff(const std::vector<TiffEntry>& entries, const std::vector<uint8_t>& data,
                               uint32_t nextDirectory = 0) {
    std::vector<uint8_t> bytes = {'I', 'I', 42, 0, 8, 0, 0, 0};
    const auto append = [&bytes](uint32_t value, int length) {
        for (int i = 0; i < length; ++i)
            bytes.push_back(static_cast<uint8_t>(value >> (8 * i)));
    };
    append(static_cast<uint32_t>(entries.size()), 2);
    for (const TiffEntry& entry : entries) {
        append(entry.tag, 2);
        append(entry.type, 2);
        append(entry.count, 4);
        append(entry.value, 4);
    }
    append(nextDirectory, 4);
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}

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
                     std::vector<uint8_t>(size_t{5} * 29, 0xA5), nextDirectory);
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
