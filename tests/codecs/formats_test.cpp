#include "codecs/bits.h"
#include "codecs/pagecodecs.h"
#include "core/base/error.h"
#include "tests/codecs/pattern.h"
#include "tests/codecs/pictures.h"

#include <gtest/gtest.h>

#include <array>

// What a whole stored picture cannot tell: parts that may be missing, and runs that lead astray.
namespace pixmo {
namespace {

bool isRefused(const std::vector<uint8_t>& bytes) {
    try {
        PageCodecs().decode(bytes);
        return false;
    } catch (const Error&) {
        return true;
    }
}

/// Which index has that colour in the greyish tables of the test pictures.
size_t indexOf(uint32_t colour) {
    uint32_t index = 0;
    while (index < 16 && ((index * 0x17290BU + 0x32141EU) & 0xFFFFFFU) != colour)
        ++index;
    return index;
}

/// The indices of a run-length picture of 4 x 2, top row first, as text: one hexadecimal digit a pixel.
std::string runLengthPicture(const std::string& header, const std::vector<uint8_t>& data) {
    auto bytes = storedBytes(header);
    bytes.insert(bytes.end(), data.begin(), data.end());
    std::string text;
    try {
        const Raster raster = PageCodecs().decode(bytes);
        for (uint32_t y = 0; y < 2; ++y) {
            for (uint32_t x = 0; x < 4; ++x)
                text += "0123456789ABCDEF?"[indexOf(colourAt(raster, x, y))];
            text += y == 0 ? "/" : "";
        }
    } catch (const Error& error) {
        text = error.Description;
    }
    return text;
}

TEST(Bits, GoToAnyPlaceOfARow) {
    const uint8_t source[] = {0xB5, 0xC0};
    for (size_t place = 0; place < 20; ++place) {
        std::array<uint8_t, 4> row{};
        copyBits(source, 11, row.data(), place, place > 9);
        for (size_t i = 0; i < 11; ++i)
            EXPECT_EQ(row[(place + i) / 8] >> (7 - (place + i) % 8) & 1,
                      (source[i / 8] >> (7 - i % 8) & 1) ^ (place > 9 ? 1 : 0))
                << place << "+" << i;
    }
}

TEST(Bmp, RunLengths) {
    struct Case {
        const char* header;
        std::vector<uint8_t> data;
        const char* seen;
    };
    const char* const eight = "rle8-header.bin";
    const char* const four = "rle4-header.bin";
    const char* const cutShort = "The BMP picture is cut short after row 1 of 2.";
    const std::vector<Case> cases = {
        {eight, {4, 5, 0, 0, 2, 6, 2, 7, 0, 1}, "6677/5555"},
        {eight, {0, 4, 1, 2, 3, 4, 0, 0, 0, 3, 5, 6, 7, 0, 0, 1}, "5670/1234"},
        {eight, {1, 9, 0, 2, 1, 1, 2, 8, 0, 1}, "0088/9000"}, // a move over what stays index 0
        {eight, {4, 5, 0, 1}, "0000/5555"},                   // the writer's own early end
        {eight, {9, 3, 0, 0, 4, 4}, "4444/3333"},             // a run over the margin; no end mark
        {four, {4, 0x56, 0, 0, 3, 0x78, 1, 0x90, 0, 1}, "7879/5656"},
        {four, {0, 4, 0x12, 0x34, 0, 0, 0, 3, 0x56, 0x70, 0, 1}, "5670/1234"},
        {eight, {4, 5, 0, 0, 2, 6}, cutShort},
        {eight, {4, 5, 0, 0, 0, 4, 1, 2}, cutShort},
        {eight, {4, 5, 0, 0, 0, 2, 1}, cutShort},
    };
    for (const Case& c : cases)
        EXPECT_EQ(runLengthPicture(c.header, c.data), c.seen);
}

// 35 pixels of 3 bytes: each row ends in three bytes of padding.
TEST(Bmp, LastRowMayLackItsPadding) {
    auto bytes = storedBytes("bmp24-header40.bmp");
    bytes.resize(bytes.size() - 3);
    EXPECT_FALSE(isRefused(bytes));
    bytes.pop_back();
    EXPECT_TRUE(isRefused(bytes));
}

TEST(Jpeg, DamagedExifCostsOnlyFacts) {
    const auto whole = storedBytes("jpeg-exif-turned.jpg");
    constexpr size_t Block = 12; // behind the file's mark, the marker, its length and "Exif"
    const size_t end = size_t{4} + whole[4] * size_t{256} + whole[5];
    for (size_t length = 0; length < 40; ++length) {
        std::vector<uint8_t> bytes(whole.begin(),
                                   whole.begin() + static_cast<std::ptrdiff_t>(Block + length));
        bytes[5] = static_cast<uint8_t>(8 + length);
        bytes.insert(bytes.end(), whole.begin() + static_cast<std::ptrdiff_t>(end), whole.end());
        EXPECT_FALSE(PageCodecs().decode(bytes).empty());
    }
}

TEST(Jpeg, NoEndMarker) {
    // The one scan of a baseline picture says itself whether it is whole.
    auto bytes = storedBytes("jpeg-ycc.jpg");
    const Raster whole = PageCodecs().decode(bytes);
    bytes.resize(bytes.size() - 2);
    EXPECT_EQ(PageCodecs().decode(bytes).pixels, whole.pixels);
    for (const char* file : {"jpeg-ycc-arithmetic.jpg", "jpeg-ycc-progressive.jpg"}) {
        bytes = storedBytes(file);
        bytes.resize(bytes.size() - 2);
        EXPECT_TRUE(isRefused(bytes)) << file;
    }
}

TEST(Tiff, OldStyleJpegWithoutItsSecondHalfIsRefused) {
    auto bytes = storedBytes("tiff-ojpeg.tif");
    std::fill(bytes.begin() + 750, bytes.end() - 6, uint8_t{0});
    EXPECT_TRUE(isRefused(bytes));
}

} // namespace
} // namespace pixmo
