#include "codecs/pagecodecs.h"
#include "core/base/error.h"
#include "tests/codecs/pattern.h"
#include "tests/codecs/samplebmp.h"

#include <gtest/gtest.h>

#include <bit>
#include <initializer_list>

namespace pixmo {
namespace {

uint32_t expectedColour(const BmpSpec& spec, uint32_t x, uint32_t y) {
    if (spec.bits <= 8)
        return bmpColour(patternSample(x, y, 0, spec.bits));
    uint32_t colour = 0;
    for (uint32_t channel = 0; channel < 3; ++channel) {
        double level = patternSample(x, y, channel, 8);
        if (spec.bits != 24) {
            const auto last = (uint64_t{1} << std::popcount(spec.masks[channel])) - 1;
            level = bmpMaskedSample(spec.masks[channel], x, y, channel) * 255.0 / static_cast<double>(last);
        }
        colour = colour << 8 | static_cast<uint32_t>(level + 0.5);
    }
    return colour;
}

void expectDecodes(const BmpSpec& spec) {
    SCOPED_TRACE(testing::Message() << spec.bits << " bits, header " << spec.headerSize << ", compression "
                                    << spec.compression << ", top down " << spec.topDown);
    const Raster raster = PageCodecs().decode(makeBmp(spec));
    ASSERT_EQ(raster.format, spec.bits == 1 ? PixelFormat::Bilevel : PixelFormat::Rgb);
    ASSERT_EQ(raster.width, static_cast<int32_t>(spec.width));
    ASSERT_EQ(raster.height, static_cast<int32_t>(spec.height));
    EXPECT_EQ(raster.bitsPerPixel, spec.bits);
    EXPECT_TRUE(hasCleanMargins(raster));
    for (uint32_t y = 0; y < spec.height; ++y)
        for (uint32_t x = 0; x < spec.width; ++x)
            for (int shift = 0; shift <= 16; shift += 8)
                ASSERT_NEAR(static_cast<int>(colourAt(raster, x, y) >> shift & 255),
                            static_cast<int>(expectedColour(spec, x, y) >> shift & 255),
                            spec.bits > 8 ? 1 : 0)
                    << "at " << x << ", " << y;
}

TEST(Bmp, EveryDepthAndHeader) {
    for (const uint16_t bits : std::initializer_list<uint16_t>{1, 2, 4, 8, 16, 24, 32})
        for (const uint32_t headerSize : {12U, 40U, 108U, 124U})
            for (const bool topDown : {false, true}) {
                if (headerSize == 12 && (topDown || bits == 16 || bits == 32))
                    continue;
                BmpSpec spec;
                spec.bits = bits;
                spec.headerSize = headerSize;
                spec.topDown = topDown;
                spec.masks = bits == 16 ? std::array<uint32_t, 3>{0x7C00, 0x3E0, 0x1F}
                                        : std::array<uint32_t, 3>{0xFF0000, 0xFF00, 0xFF};
                expectDecodes(spec);
            }
}

TEST(Bmp, BitFields) {
    struct Fields {
        uint16_t bits;
        std::array<uint32_t, 3> masks;
    };
    for (const Fields& fields :
         {Fields{16, {0xF800, 0x07E0, 0x001F}}, Fields{16, {0x000F, 0x00F0, 0x0F00}},
          Fields{32, {0x000000FF, 0x0000FF00, 0x00FF0000}}, Fields{32, {0x3FF00000, 0x000FFC00, 0x000003FF}}})
        for (const uint32_t headerSize : {40U, 56U, 108U}) {
            BmpSpec spec;
            spec.bits = fields.bits;
            spec.masks = fields.masks;
            spec.headerSize = headerSize;
            spec.compression = 3;
            expectDecodes(spec);
        }
}

TEST(Bmp, Resolution) {
    BmpSpec spec;
    spec.dotsPerMetre = 3937;
    const Raster raster = PageCodecs().decode(makeBmp(spec));
    EXPECT_NEAR(raster.xResolution, 100, 0.01);
    EXPECT_NEAR(raster.yResolution, 200, 0.01);
}

/// The indices of a small run-length picture, top row first, as text: one hexadecimal digit a pixel.
std::string runLengthPicture(uint16_t bits, uint32_t width, uint32_t height,
                             const std::vector<uint8_t>& data) {
    BmpSpec spec;
    spec.bits = bits;
    spec.compression = bits == 8 ? 1 : 2;
    spec.width = width;
    spec.height = height;
    Raster raster;
    try {
        raster = PageCodecs().decode(wrapBmp(spec, data));
    } catch (const Error& error) {
        return error.Description;
    }
    std::string text;
    for (uint32_t y = 0; y < height; ++y) {
        for (uint32_t x = 0; x < width; ++x) {
            uint32_t index = 0;
            while (index < 16 && bmpColour(index) != colourAt(raster, x, y))
                ++index;
            text += "0123456789ABCDEF?"[index];
        }
        text += y + 1 < height ? "/" : "";
    }
    return text;
}

TEST(Bmp, RunLengths) {
    struct Case {
        uint16_t bits;
        std::vector<uint8_t> data;
        const char* seen;
    };
    const char* const cutShort = "The BMP picture is cut short after row 1 of 2.";
    const std::vector<Case> cases = {
        {8, {4, 5, 0, 0, 2, 6, 2, 7, 0, 1}, "6677/5555"},
        {8, {0, 4, 1, 2, 3, 4, 0, 0, 0, 3, 5, 6, 7, 0, 0, 1}, "5670/1234"},
        {8, {1, 9, 0, 2, 1, 1, 2, 8, 0, 1}, "0088/9000"}, // a move over what stays index 0
        {8, {4, 5, 0, 1}, "0000/5555"},                   // the writer's own early end
        {8, {9, 3, 0, 0, 4, 4}, "4444/3333"},             // a run over the margin; no end mark
        {4, {4, 0x56, 0, 0, 3, 0x78, 1, 0x90, 0, 1}, "7879/5656"},
        {4, {0, 4, 0x12, 0x34, 0, 0, 0, 3, 0x56, 0x70, 0, 1}, "5670/1234"},
        {8, {4, 5, 0, 0, 2, 6}, cutShort},
        {8, {4, 5, 0, 0, 0, 4, 1, 2}, cutShort},
        {8, {4, 5, 0, 0, 0, 2, 1}, cutShort},
    };
    for (const Case& c : cases)
        EXPECT_EQ(runLengthPicture(c.bits, 4, 2, c.data), c.seen);
}

TEST(Bmp, LastRowMayLackItsPadding) {
    BmpSpec spec;
    spec.width = 5;
    auto bytes = makeBmp(spec);
    bytes.pop_back();
    EXPECT_NO_THROW(PageCodecs().decode(bytes));
    bytes.pop_back();
    EXPECT_THROW(PageCodecs().decode(bytes), Error);
}

} // namespace
} // namespace pixmo
