#include "apps/engine/documentstore.h"
#include "apps/engine/naturalorder.h"
#include "core/base/files.h"
#include "tests/engine/samplefolder.h"
#include "tests/engine/storedframe.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace pixmo {
namespace {

namespace fs = std::filesystem;

std::vector<uint8_t> bytesOf(const std::string& text) {
    return {text.begin(), text.end()};
}

TEST(NaturalOrder, NumbersPagesAsPeopleDo) {
    const std::vector<std::string> ordered = {"1.png",
                                              "2.png",
                                              "10.png",
                                              "a.png",
                                              "page.png",
                                              "page1.png",
                                              "PAGE2.png",
                                              "page2.png",
                                              "page02b",
                                              "page9b",
                                              "page10.png",
                                              "page10b.png",
                                              "page18446744073709551616.png",
                                              "page18446744073709551617.png",
                                              "z"};
    for (size_t i = 0; i < ordered.size(); ++i)
        for (size_t j = 0; j < ordered.size(); ++j)
            EXPECT_EQ(naturallyBefore(ordered[i], ordered[j]), i < j) << ordered[i] << ' ' << ordered[j];
    EXPECT_NE(naturallyBefore("page02.png", "page2.png"), naturallyBefore("page2.png", "page02.png"));
}

TEST(DocumentStore, PagesArePictureFilesInNaturalOrder) {
    const SampleFolder folder;
    for (const char* name : {"page10.PNG", "page2.tif", "page1.jpeg", "page3.gif", "page4.bmp", "page5.tiff"})
        folder.write(fs::path("7") / name, std::string(name));
    for (const char* name : {".page0.png", "notes.txt", "page0.pdf", "page0"})
        folder.write(fs::path("7") / name, "no page");
    fs::create_directories(folder.path() / "7" / "page0.png");
    mkfifo((folder.path() / "7" / "page00.png").c_str(), 0600);
    fs::create_directories(folder.path() / "8");
    folder.write("9", "a file, not a document");

    const DocumentStore store(folder.path());
    EXPECT_EQ(store.pageCount(7), 6U);
    EXPECT_EQ(store.page(7, 1), bytesOf("page1.jpeg"));
    EXPECT_EQ(store.page(7, 2), bytesOf("page2.tif"));
    EXPECT_EQ(store.page(7, 6), bytesOf("page10.PNG"));
    EXPECT_FALSE(store.page(7, 0));
    EXPECT_FALSE(store.page(7, 7));
    EXPECT_EQ(store.pageCount(8), 0U);
    for (const int32_t unknown : {9, 6, 0, -7, 2147483647, -2147483647 - 1})
        EXPECT_FALSE(store.pageCount(unknown)) << unknown;

    fs::remove(folder.path() / "7" / "page2.tif");
    EXPECT_EQ(store.page(7, 2), bytesOf("page3.gif"));
    folder.write("7/page3.gif", "");
    EXPECT_FALSE(store.page(7, 2));
    EXPECT_EQ(store.pageCount(7), 5U);
    EXPECT_THROW(DocumentStore(folder.path() / "absent"), std::runtime_error);
    EXPECT_THROW(DocumentStore(folder.path() / "9"), std::runtime_error);
}

TEST(DocumentStore, NothingOutsideTheFolderIsReached) {
    const SampleFolder folder;
    folder.write("outside/1/secret.png", "secret");
    folder.write("outside/secret.png", "secret");
    folder.write("outside/properties.txt", "PrintFee=secret");
    folder.write("docs/1/page1.png", "first");
    folder.write("docs-too/1/page1.png", "neighbour");
    fs::create_directory_symlink(folder.path() / "outside" / "1", folder.path() / "docs" / "2");
    fs::create_directory_symlink(folder.path() / "docs-too" / "1", folder.path() / "docs" / "3");
    fs::create_directory_symlink("1", folder.path() / "docs" / "4");
    fs::create_directory_symlink("..", folder.path() / "docs" / "5");
    fs::create_directory_symlink("6", folder.path() / "docs" / "6");
    fs::create_symlink(folder.path() / "outside" / "secret.png", folder.path() / "docs" / "1" / "page0.png");
    fs::create_symlink("../../outside/secret.png", folder.path() / "docs" / "1" / "page00.png");
    fs::create_symlink(folder.path() / "outside" / "properties.txt",
                       folder.path() / "docs" / "1" / "properties.txt");
    fs::create_symlink("absent.png", folder.path() / "docs" / "1" / "page000.png");
    fs::create_symlink("page1.png", folder.path() / "docs" / "1" / "page2.png");

    const DocumentStore store(folder.path() / "docs");
    EXPECT_EQ(store.pageCount(1), 2U);
    EXPECT_EQ(store.page(1, 1), bytesOf("first"));
    EXPECT_EQ(store.page(1, 2), bytesOf("first"));
    EXPECT_TRUE(store.properties(1).empty());
    EXPECT_EQ(store.pageCount(4), 2U);
    for (const int32_t outside : {2, 3, 5, 6})
        EXPECT_FALSE(store.pageCount(outside)) << outside;
}

TEST(DocumentStore, AnOnlyTiffGivesItsFrames) {
    const SampleFolder folder;
    folder.write("1/scan.tif", readFile(storedPicture("scan.tif")));
    folder.write("2/single.tif", readFile(storedPicture("single.tif")));
    folder.write("3/broken.tif", "II* no picture");
    const DocumentStore store(folder.path());
    EXPECT_EQ(store.pageCount(1), 3U);
    ASSERT_TRUE(store.page(1, 2));
    folder.write("frame.tif", *store.page(1, 2));
    EXPECT_TRUE(readFrame(folder.path() / "frame.tif", 0) == readFrame(folder.path() / "1" / "scan.tif", 1));
    EXPECT_FALSE(store.page(1, 4));
    EXPECT_EQ(store.pageCount(2), 1U);
    EXPECT_EQ(store.pageCount(3), 1U);
    EXPECT_EQ(store.page(3, 1), bytesOf("II* no picture"));
    // With a second file, each file is a page.
    fs::copy_file(folder.path() / "2" / "single.tif", folder.path() / "1" / "zz.tif");
    EXPECT_EQ(store.pageCount(1), 2U);
    EXPECT_EQ(store.page(1, 2), store.page(2, 1));
}

TEST(DocumentStore, ReadsPropertiesOfADocument) {
    const SampleFolder folder;
    folder.write("1/properties.txt", "PrintItemDesc=Deed = 1988\r\nno property\n=x\nPrintFee=2\n");
    const DocumentStore store(folder.path());
    EXPECT_EQ(store.properties(1),
              (std::vector<Property>{{"PrintItemDesc", "Deed = 1988"}, {"PrintFee", "2"}}));
    EXPECT_TRUE(store.properties(2).empty());
    folder.write("1/properties.txt", "A=" + std::string(100'000, 'x'));
    EXPECT_TRUE(store.properties(1).empty());
}

} // namespace
} // namespace pixmo
