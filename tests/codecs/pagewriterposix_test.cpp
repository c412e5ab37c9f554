#include "codecs/pagewriter.h"
#include "core/base/error.h"
#include "core/base/files.h"
#include "core/raster/raster.h"
#include "faces/scripted/scriptedports.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <sys/resource.h>

namespace pixmo {
namespace {

namespace fs = std::filesystem;

/// No file of this process grows beyond the limit, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &former_);
        rlimit limit = former_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &former_); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit former_{};
};

int32_t errorOf(const fs::path& path) {
    try {
        PageFileWriter().write(makeRaster(PixelFormat::Rgb, 203, 97), path);
    } catch (const Error& error) {
        return error.Number;
    }
    return 0;
}

class PageWriterPosix : public testing::Test {
protected:
    scripted::ScratchFolder scratch;
    const fs::path folder = scratch.path();
    const std::vector<uint8_t> former = {'o', 'l', 'd'};
};

TEST_F(PageWriterPosix, AFullDiskLeavesTheFormerFile) {
    for (const char* name : {"page.png", "page.tif"}) {
        writeFile(folder / name, former);
        int32_t number = 0;
        {
            const FileSizeLimit limit(100);
            number = errorOf(folder / name);
        }
        EXPECT_EQ(number, error_number::DiskFull);
        EXPECT_EQ(readFile(folder / name), former);
    }
    EXPECT_EQ(scratch.fileCount(), 2U);
}

TEST_F(PageWriterPosix, ALinkStaysALink) {
    writeFile(folder / "page.png", former);
    fs::create_symlink("page.png", folder / "link.png");
    EXPECT_EQ(errorOf(folder / "link.png"), 0);
    EXPECT_TRUE(fs::is_symlink(folder / "link.png"));
    EXPECT_NE(readFile(folder / "page.png"), former);
    EXPECT_EQ(scratch.fileCount(), 2U);
}

} // namespace
} // namespace pixmo
