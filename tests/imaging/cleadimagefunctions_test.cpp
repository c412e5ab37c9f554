#include "core/imaging/cleadimagefunctions.h"

#include "core/base/files.h"
#include "faces/scripted/scriptedports.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <numeric>

namespace pixmo {
namespace {

class LeadImage : public testing::Test {
protected:
    using Bytes = cLeadImageFunctions::Bytes;

    static Bytes bytesOf(const std::string& text) { return {text.begin(), text.end()}; }
    std::filesystem::path file(const std::string& name, const std::string& text) {
        writeFile(scratch.path() / name, bytesOf(text));
        return scratch.path() / name;
    }

    scripted::ScratchFolder scratch;
    scripted::ViewSurface surface;
    scripted::PageDecoder decoder;
    cErrObject errors;
    RasterView view{surface};
    cLeadImageFunctions help{errors, view, decoder};
};

TEST_F(LeadImage, RestoresAsManyBytesAsWereProtected) {
    struct Case {
        int32_t encBytes;
        const char* stored;
    };
    for (const Case& c : {Case{-1, "5x3 egap"}, Case{0, "page 3x5"}, Case{1, "page 3x5"}, Case{4, "egap 3x5"},
                          Case{100, "5x3 egap"}}) {
        view.clear();
        EXPECT_EQ(help.imgDisplayEncryptedPage(file("p", c.stored), c.encBytes), 0) << c.stored;
        EXPECT_EQ(view.raster().width, 3) << c.encBytes;
        EXPECT_EQ(view.raster().height, 5);
    }
    EXPECT_TRUE(help.imgDisplayed());
    help.imgClear();
    EXPECT_FALSE(help.imgDisplayed());
}

TEST_F(LeadImage, AFailedLoadLeavesTheViewAsItWas) {
    ASSERT_EQ(help.LoadImageInViewer(file("p", "page 3x5")), 0);
    const std::string absent = (scratch.path() / "absent").string();
    EXPECT_EQ(help.imgDisplayEncryptedPage(absent, 0), 1);
    EXPECT_EQ(errors.Description(), "Invalid image file path: '" + absent + "'");
    EXPECT_EQ(errors.Source(), "cLeadImageFunctions.imgDisplayEncryptedPage");
    const std::string empty = file("empty", "").string();
    EXPECT_EQ(help.imgDisplayEncryptedPage(empty, 0), 1);
    EXPECT_EQ(errors.Description(), "File '" + empty + "' was empty.");
    EXPECT_EQ(help.imgDisplayEncryptedPage(file("p", "rubbish"), 0), error_number::InvalidPicture);
    EXPECT_EQ(errors.Source(), "cLeadImageFunctions.LoadArrayToRaster");
    EXPECT_EQ(help.imgFileToArray(absent, *std::make_unique<Bytes>()), error_number::FileNotFound);
    EXPECT_EQ(view.raster().width, 3);
}

TEST_F(LeadImage, AFolderIsNoPage) {
    EXPECT_NE(help.imgDisplayEncryptedPage(scratch.path(), 0), 0);
}

TEST_F(LeadImage, MemoryThatIsNotThereIsReported) {
    class Greedy : public PageDecoder {
        Raster decode(std::span<const uint8_t>) const override { throw std::bad_alloc(); }
    };
    const Greedy greedy;
    cLeadImageFunctions greedyHelp(errors, view, greedy);
    EXPECT_EQ(greedyHelp.LoadImageFromArray(bytesOf("x")), 1);
    EXPECT_EQ(errors.Description(), "Error allocating memory for image.");
}

TEST_F(LeadImage, WritesARestoredCopyBesideTheFile) {
    EXPECT_EQ(help.imgDecryptToFile(file("page1.v2.dat", "edcbaxyz"), 5), 0);
    EXPECT_EQ(readFile(scratch.path() / "page1.v2.restored.dat"), bytesOf("abcdexyz"));
    EXPECT_EQ(readFile(scratch.path() / "page1.v2.dat"), bytesOf("edcbaxyz"));
}

} // namespace
} // namespace pixmo
