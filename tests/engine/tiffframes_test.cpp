#include "apps/engine/framecache.h"
#include "apps/engine/tiffframes.h"
#include "tests/engine/samplefolder.h"
#include "tests/engine/sampletiff.h"

#include <fstream>
#include <gtest/gtest.h>
#include <tiffio.h>

namespace pixmo {
namespace {

const std::vector<SampleFrame> Frames = {
    {COMPRESSION_CCITTFAX4, 1, 1, PHOTOMETRIC_MINISWHITE, false, 1, FILLORDER_LSB2MSB},
    {COMPRESSION_CCITTFAX3, 1, 1, PHOTOMETRIC_MINISBLACK},
    {COMPRESSION_LZW, 8, 3, PHOTOMETRIC_RGB, false, PREDICTOR_HORIZONTAL},
    {COMPRESSION_JPEG, 8, 3, PHOTOMETRIC_YCBCR},
    {COMPRESSION_JPEG, 8, 1, PHOTOMETRIC_MINISBLACK, true},
    {COMPRESSION_ADOBE_DEFLATE, 16, 1, PHOTOMETRIC_MINISBLACK, true, PREDICTOR_HORIZONTAL},
    {COMPRESSION_NONE, 8, 1, PHOTOMETRIC_PALETTE},
    {COMPRESSION_PACKBITS, 4, 1, PHOTOMETRIC_MINISWHITE},
};

TEST(TiffFrames, AreTheFramesOfTheSourceByteForByte) {
    const SampleFolder folder;
    const auto source = folder.path() / "all.tif";
    for (const char* mode : {"wl", "wb", "wb8"}) {
        writeTiff(source, Frames, mode);
        ASSERT_EQ(countTiffFrames(source), Frames.size());
        for (unsigned index = 0; index < Frames.size(); ++index) {
            const auto frame = extractTiffFrame(source, index);
            ASSERT_TRUE(frame) << mode << ' ' << index;
            folder.write("one.tif", *frame);
            EXPECT_EQ(countTiffFrames(folder.path() / "one.tif"), 1U);
            const StoredFrame stored = readFrame(folder.path() / "one.tif", 0);
            const StoredFrame original = readFrame(source, index);
            EXPECT_TRUE(stored.pieces == original.pieces) << mode << ' ' << index;
            EXPECT_TRUE(stored.pixels == original.pixels) << mode << ' ' << index;
            EXPECT_EQ(stored.description, original.description) << mode << ' ' << index;
        }
        EXPECT_FALSE(extractTiffFrame(source, Frames.size()));
    }
}

TEST(TiffFrames, DamageGivesNoFrameAndNoHarm) {
    const SampleFolder folder;
    const auto source = folder.path() / "all.tif";
    writeTiff(source, Frames);
    std::ifstream stream(source, std::ios::binary);
    const std::vector<uint8_t> whole{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(countTiffFrames(folder.path() / "absent.tif"), 0U);
    EXPECT_FALSE(extractTiffFrame(folder.path() / "absent.tif", 0));
    size_t lost = 0;
    for (size_t seed = 0; seed < 300; ++seed) {
        auto damaged = whole;
        const auto noise = sampleBytes(6, static_cast<unsigned>(seed));
        for (const uint8_t byte : noise)
            damaged[(byte * size_t{7919} + seed * 104729) % damaged.size()] = byte;
        damaged.resize(damaged.size() - seed * 7 % (damaged.size() / 2));
        folder.write("damaged.tif", damaged);
        const size_t count = countTiffFrames(folder.path() / "damaged.tif");
        EXPECT_LE(count, Frames.size());
        for (size_t index = 0; index < Frames.size(); ++index)
            lost += extractTiffFrame(folder.path() / "damaged.tif", index) ? 0U : 1U;
    }
    EXPECT_GT(lost, 300U);
}

TEST(FrameCache, KeepsTheLatestWithinItsBoundAndSeesChanges) {
    const SampleFolder folder;
    const auto source = folder.path() / "all.tif";
    writeTiff(source, Frames);
    const auto third = extractTiffFrame(source, 2);
    const auto seventh = extractTiffFrame(source, 6);
    ASSERT_TRUE(third && seventh);
    FrameCache cache(third->size() + seventh->size() - 1);
    EXPECT_EQ(cache.frame(source, 2), third);
    EXPECT_EQ(cache.bytesHeld(), third->size());
    EXPECT_EQ(cache.frame(source, 2), third);
    EXPECT_EQ(cache.bytesHeld(), third->size());
    EXPECT_EQ(cache.frame(source, 6), seventh);
    EXPECT_EQ(cache.bytesHeld(), seventh->size());

    writeTiff(source, {Frames[6], Frames[6], Frames[6], Frames[0]});
    EXPECT_EQ(cache.frame(source, 2), extractTiffFrame(source, 2));
    EXPECT_NE(cache.frame(source, 2), third);
    std::filesystem::remove(source);
    EXPECT_FALSE(cache.frame(source, 2));
}

} // namespace
} // namespace pixmo
