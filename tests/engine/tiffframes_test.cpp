#include "apps/engine/framecache.h"
#include "apps/engine/tiffframes.h"
#include "core/base/files.h"
#include "tests/engine/samplefolder.h"
#include "tests/engine/storedframe.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

/// In each of the files with all kinds of frames.
constexpr size_t Frames = 8;

TEST(TiffFrames, ShowWhatTheSourceShows) {
    const SampleFolder folder;
    for (const char* name : {"little.tif", "big.tif", "bigtiff.tif"}) {
        const auto source = storedPicture(name);
        ASSERT_EQ(countTiffFrames(source), Frames);
        for (unsigned index = 0; index < Frames; ++index) {
            const auto frame = extractTiffFrame(source, index);
            ASSERT_TRUE(frame) << name << ' ' << index;
            folder.write("one.tif", *frame);
            EXPECT_EQ(countTiffFrames(folder.path() / "one.tif"), 1U);
            EXPECT_TRUE(readFrame(folder.path() / "one.tif", 0) == readFrame(source, index)) << name << index;
        }
        EXPECT_FALSE(extractTiffFrame(source, Frames));
    }
}

TEST(TiffFrames, DamageGivesNoFrameAndNoHarm) {
    const SampleFolder folder;
    const auto whole = readFile(storedPicture("little.tif"));
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
        EXPECT_LE(count, Frames);
        for (size_t index = 0; index < Frames; ++index)
            lost += extractTiffFrame(folder.path() / "damaged.tif", index) ? 0U : 1U;
    }
    EXPECT_GT(lost, 300U);
}

TEST(FrameCache, KeepsTheLatestWithinItsBoundAndSeesChanges) {
    const SampleFolder folder;
    const auto source = folder.path() / "all.tif";
    folder.write("all.tif", readFile(storedPicture("little.tif")));
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

    folder.write("all.tif", readFile(storedPicture("other.tif")));
    EXPECT_EQ(cache.frame(source, 2), extractTiffFrame(source, 2));
    EXPECT_NE(cache.frame(source, 2), third);
    std::filesystem::remove(source);
    EXPECT_FALSE(cache.frame(source, 2));
}

} // namespace
} // namespace pixmo
