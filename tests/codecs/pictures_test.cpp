#include "codecs/pagecodecs.h"
#include "core/base/error.h"
#include "tests/codecs/pattern.h"
#include "tests/codecs/pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tiffio.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>

namespace pixmo {
namespace {

constexpr std::array Formats = {"bilevel", "gray", "rgb"};

/// What not every libtiff is built with.
bool canBeDecodedHere(const std::string& file) {
    const bool isLzma = file.starts_with("tiff-lzma");
    const bool isZstd = file.starts_with("tiff-zstd");
    return !(isLzma && TIFFIsCODECConfigured(COMPRESSION_LZMA) == 0) &&
           !(isZstd && TIFFIsCODECConfigured(COMPRESSION_ZSTD) == 0);
}

/// How far the raster is from the picture of plain pixels (P6), in levels of a colour; -1 for another size.
int distance(const Raster& raster, const std::vector<uint8_t>& plain) {
    std::istringstream head(std::string(plain.begin(), plain.end()));
    std::string kind;
    uint32_t width = 0;
    uint32_t height = 0;
    int most = 0;
    head >> kind >> width >> height >> most;
    if (raster.width != static_cast<int32_t>(width) || raster.height != static_cast<int32_t>(height))
        return -1;
    auto at = plain.begin() + static_cast<std::ptrdiff_t>(head.tellg()) + 1;
    int worst = 0;
    for (uint32_t y = 0; y < height; ++y)
        for (uint32_t x = 0; x < width; ++x)
            for (int shift = 16; shift >= 0; shift -= 8)
                worst = std::max(
                    worst, std::abs(static_cast<int>(colourAt(raster, x, y) >> shift & 255) - int{*at++}));
    return worst;
}

std::string coloursOf(const Raster& raster) {
    if (raster.format != PixelFormat::Bilevel)
        return "-";
    char text[14];
    std::snprintf(text, sizeof text, "%06x/%06x", raster.bilevelColours[0], raster.bilevelColours[1]);
    return text;
}

TEST(Pictures, ShowWhatTheyWereMadeOf) {
    for (const StoredPicture& picture : storedPictures()) {
        SCOPED_TRACE(picture.file);
        const auto bytes = storedBytes(picture.file);
        if (!canBeDecodedHere(picture.file)) {
            EXPECT_THROW(PageCodecs().decode(bytes), Error);
            continue;
        }
        const Raster raster = PageCodecs().decode(bytes);
        EXPECT_EQ(Formats.at(static_cast<size_t>(raster.format)), picture.format);
        EXPECT_EQ(raster.bitsPerPixel, picture.bits);
        EXPECT_NEAR(raster.xResolution, picture.xResolution, 0.01);
        EXPECT_NEAR(raster.yResolution, picture.yResolution, 0.01);
        EXPECT_EQ(coloursOf(raster), picture.colours);
        EXPECT_TRUE(hasCleanMargins(raster));
        EXPECT_THAT(distance(raster, storedBytes("seen/" + picture.seen)),
                    testing::AllOf(testing::Ge(0), testing::Le(picture.tolerance)));
    }
}

TEST(Pictures, AreAllInTheTable) {
    std::set<std::string> listed = {"README.md", "pictures.txt", "rle4-header.bin", "rle8-header.bin",
                                    "seen"};
    for (const StoredPicture& picture : storedPictures())
        listed.insert(picture.file);
    std::set<std::string> stored;
    for (const auto& entry : std::filesystem::directory_iterator(PIXMO_PICTURES))
        stored.insert(entry.path().filename().string());
    EXPECT_EQ(stored, listed);
}

} // namespace
} // namespace pixmo
