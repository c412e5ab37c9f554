#include "codecs/pagewriter.h"

#include "codecs/pagecodecs.h"
#include "core/base/error.h"
#include "core/base/files.h"
#include "faces/scripted/scriptedports.h"
#include "tests/codecs/pattern.h"

#include <gtest/gtest.h>
#include <tiffio.h>

#include <filesystem>
#include <memory>

namespace pixmo {
namespace {

namespace fs = std::filesystem;

constexpr int32_t Width = 203;
constexpr int32_t Height = 97;

class PageWriterTest : public testing::Test {
protected:
    fs::path file(const std::string& name) { return folder_.path() / name; }
    static Raster read(const fs::path& path) { return PageCodecs().decode(readFile(path)); }
    size_t fileCount() const { return folder_.fileCount(); }
    static int32_t errorOf(const Raster& page, const fs::path& path) {
        try {
            PageFileWriter().write(page, path);
        } catch (const Error& error) {
            return error.Number;
        }
        return 0;
    }

private:
    scripted::ScratchFolder folder_;
};

Raster page(PixelFormat format, std::array<uint32_t, 2> colours = {0xFFFFFF, 0}) {
    Raster raster = makeRaster(format, Width, Height);
    raster.xResolution = 300;
    raster.yResolution = 150;
    raster.bilevelColours = colours;
    const uint32_t channels = format == PixelFormat::Rgb ? 3 : 1;
    for (uint32_t y = 0; y < uint32_t{Height}; ++y)
        for (uint32_t x = 0; x < uint32_t{Width}; ++x) {
            const auto row = raster.row(static_cast<int32_t>(y));
            if (format == PixelFormat::Bilevel)
                row[x / 8] = static_cast<uint8_t>(row[x / 8] | patternSample(x, y, 0, 1) << (7 - x % 8));
            else
                for (uint32_t channel = 0; channel < channels; ++channel)
                    row[size_t{x} * channels + channel] =
                        static_cast<uint8_t>(patternSample(x, y, channel, 8));
        }
    return raster;
}

struct Kind {
    PixelFormat format;
    std::array<uint32_t, 2> colours;
    int compression;
    int photometric;
};

constexpr std::array Kinds = {
    Kind{PixelFormat::Bilevel, {0xFFFFFF, 0}, COMPRESSION_CCITTFAX4, PHOTOMETRIC_MINISWHITE},
    Kind{PixelFormat::Bilevel, {0, 0xFFFFFF}, COMPRESSION_CCITTFAX4, PHOTOMETRIC_MINISBLACK},
    Kind{PixelFormat::Bilevel, {0xFFEEDD, 0x102030}, COMPRESSION_LZW, PHOTOMETRIC_PALETTE},
    Kind{PixelFormat::Gray, {0xFFFFFF, 0}, COMPRESSION_LZW, PHOTOMETRIC_MINISBLACK},
    Kind{PixelFormat::Rgb, {0xFFFFFF, 0}, COMPRESSION_LZW, PHOTOMETRIC_RGB},
};

TEST_F(PageWriterTest, WhatIsWrittenReadsBackAlike) {
    for (const char* name : {"page.png", "PAGE.PNG", "page.tif", "page"})
        for (const Kind& kind : Kinds) {
            SCOPED_TRACE(testing::Message() << name << ", format " << static_cast<int>(kind.format) << ", "
                                            << std::hex << kind.colours[0]);
            const Raster written = page(kind.format, kind.colours);
            PageFileWriter().write(written, file(name));
            EXPECT_EQ(fileCount(), 1U);
            const Raster raster = read(file(name));
            fs::remove(file(name));
            ASSERT_EQ(raster.width, Width);
            ASSERT_EQ(raster.height, Height);
            EXPECT_EQ(raster.format, kind.format);
            EXPECT_EQ(raster.bitsPerPixel, written.bitsPerPixel);
            // PNG stores whole dots per metre.
            EXPECT_NEAR(raster.xResolution, 300, 0.0127);
            EXPECT_NEAR(raster.yResolution, 150, 0.0127);
            int different = 0;
            for (uint32_t y = 0; y < uint32_t{Height}; ++y)
                for (uint32_t x = 0; x < uint32_t{Width}; ++x)
                    different += colourAt(raster, x, y) != colourAt(written, x, y) ? 1 : 0;
            EXPECT_EQ(different, 0);
        }
}

TEST_F(PageWriterTest, TiffIsStoredAsItsDepthAsks) {
    for (const Kind& kind : Kinds) {
        PageFileWriter().write(page(kind.format, kind.colours), file("page.tif"));
        const std::unique_ptr<TIFF, void (*)(TIFF*)> tiff(TIFFOpen(file("page.tif").string().c_str(), "r"),
                                                          TIFFClose);
        ASSERT_TRUE(tiff);
        uint16_t compression = 0;
        uint16_t photometric = 0;
        TIFFGetField(tiff.get(), TIFFTAG_COMPRESSION, &compression);
        TIFFGetField(tiff.get(), TIFFTAG_PHOTOMETRIC, &photometric);
        EXPECT_EQ(compression, kind.compression);
        EXPECT_EQ(photometric, kind.photometric);
    }
}

TEST_F(PageWriterTest, ReplacesAFile) {
    writeFile(file("page.png"), std::vector<uint8_t>{'o', 'l', 'd'});
    PageFileWriter().write(page(PixelFormat::Gray), file("page.png"));
    EXPECT_EQ(read(file("page.png")).width, Width);
    EXPECT_EQ(fileCount(), 1U);
}

TEST_F(PageWriterTest, WhereNothingCanBeWrittenNothingIsLeft) {
    const Raster gray = page(PixelFormat::Gray);
    EXPECT_EQ(errorOf(gray, file("missing") / "page.tif"), error_number::PathFileAccess);
    fs::create_directory(file("folder.png"));
    EXPECT_EQ(errorOf(gray, file("folder.png")), error_number::PathFileAccess);
    EXPECT_EQ(errorOf(Raster(), file("empty.png")), error_number::InvalidPicture);
    EXPECT_EQ(errorOf(Raster(), file("empty.tif")), error_number::InvalidPicture);
    EXPECT_EQ(fileCount(), 1U);
}

} // namespace
} // namespace pixmo
