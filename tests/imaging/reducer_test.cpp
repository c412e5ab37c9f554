#include "core/imaging/reducer.h"

#include "tests/imaging/pictures.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numeric>
#include <random>

namespace pixmo {
namespace {

using test::Canvas;
using test::colourAt;
using test::noise;
using test::picture;

constexpr auto Gray = BilevelLook::ScaleToGray;
constexpr auto TwoColours = BilevelLook::TwoColours;

Rectangle all(const Canvas& canvas) {
    return {0, 0, canvas.surface.width, canvas.surface.height};
}

std::array<double, 3> channels(uint32_t colour) {
    return {static_cast<double>(colour >> 16U & 0xFFU), static_cast<double>(colour >> 8U & 0xFFU),
            static_cast<double>(colour & 0xFFU)};
}

/// The average colour of an area of the picture.
std::array<double, 3> average(const Raster& raster, double left, double top, double right, double bottom) {
    std::array<double, 3> sum{};
    for (auto y = static_cast<int32_t>(top); y < std::min(bottom, double(raster.height)); ++y) {
        const double down = std::min(bottom, y + 1.0) - std::max(top, double(y));
        for (auto x = static_cast<int32_t>(left); x < std::min(right, double(raster.width)); ++x) {
            const double across = std::min(right, x + 1.0) - std::max(left, double(x));
            const auto colour = channels(colourAt(raster, x, y));
            for (size_t c = 0; c < 3; ++c)
                sum[c] += colour[c] * across * down;
        }
    }
    for (double& value : sum)
        value /= (right - left) * (bottom - top);
    return sum;
}

/// Largest difference to the averages, over all pixels of the canvas.
double worstError(const Raster& raster, const RealRectangle& source, const Canvas& canvas,
                  const Rectangle& destination) {
    double worst = 0;
    const double stepX = source.width / destination.width;
    const double stepY = source.height / destination.height;
    for (int32_t y = 0; y < canvas.surface.height; ++y) {
        for (int32_t x = 0; x < canvas.surface.width; ++x) {
            const double left = source.left + (x - destination.left) * stepX;
            const double top = source.top + (y - destination.top) * stepY;
            const auto expected = average(raster, left, top, left + stepX, top + stepY);
            const auto drawn = channels(canvas.at(x, y));
            for (size_t c = 0; c < 3; ++c)
                worst = std::max(worst, std::abs(expected[c] - drawn[c]));
        }
    }
    return worst;
}

void drawWhole(const Raster& raster, Canvas& canvas, BilevelLook look = Gray) {
    drawPicture(raster, wholePicture(raster), canvas.surface, all(canvas), all(canvas), look);
}

class EveryFormat : public testing::TestWithParam<PixelFormat> {};
INSTANTIATE_TEST_SUITE_P(Reducer, EveryFormat,
                         testing::Values(PixelFormat::Bilevel, PixelFormat::Gray, PixelFormat::Rgb));

TEST_P(EveryFormat, PixelsAreAveragesOfTheAreaTheyShow) {
    Raster raster = noise(GetParam(), 517, 131);
    raster.bilevelColours = {0xF0FFE0, 0x200040};
    for (const Size size :
         {Size{1, 1}, Size{2, 131}, Size{516, 130}, Size{517, 40}, Size{518, 132}, Size{259, 3},
          Size{161, 41}, Size{64, 99}, Size{600, 20}, Size{50, 300}, Size{1600, 400}}) {
        Canvas canvas(size.width, size.height);
        drawWhole(raster, canvas);
        EXPECT_LE(worstError(raster, wholePicture(raster), canvas, all(canvas)), 1)
            << size.width << " by " << size.height;
    }
}

TEST_P(EveryFormat, PartsAtRandomScalesAndOffsets) {
    const Raster raster = noise(GetParam(), 203, 177, 7);
    std::mt19937 random(11);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution<>(low, high)(random);
    };
    for (int i = 0; i < 60; ++i) {
        RealRectangle source{between(0, 150), between(0, 150), 0, 0};
        source.width = between(0.5, raster.width - source.left);
        source.height = between(0.5, raster.height - source.top);
        Canvas canvas(37, 23);
        const Rectangle destination{-i, -2 * i, 37 + 5 * i, 23 + 9 * i};
        drawPicture(raster, source, canvas.surface, destination, all(canvas), Gray);
        EXPECT_LE(worstError(raster, source, canvas, destination), 1) << "case " << i;
    }
}

TEST_P(EveryFormat, OneToOneIsACopy) {
    const Raster raster = noise(GetParam(), 83, 61);
    Canvas canvas(60, 50);
    for (const int32_t left : {0, 1, 8, 13, 23}) {
        drawPicture(raster, wholePicture(raster), canvas.surface, {-left, -5, 83, 61}, all(canvas),
                    TwoColours);
        for (int32_t y = 0; y < 50; ++y)
            for (int32_t x = 0; x < 60; ++x)
                ASSERT_EQ(canvas.at(x, y), 0xFF000000U | colourAt(raster, x + left, y + 5));
    }
}

TEST_P(EveryFormat, WholeFactorsGiveExactBlocks) {
    const Raster raster = noise(GetParam(), 50, 40);
    for (const int32_t factor : {2, 3, 7}) {
        Canvas canvas(50 * factor, 40 * factor);
        drawWhole(raster, canvas);
        for (int32_t y = 0; y < 40 * factor; ++y)
            for (int32_t x = 0; x < 50 * factor; ++x)
                ASSERT_EQ(canvas.at(x, y), 0xFF000000U | colourAt(raster, x / factor, y / factor)) << factor;
    }
}

TEST_P(EveryFormat, AClipShowsTheSameAsTheWhole) {
    const Raster raster = noise(GetParam(), 611, 203);
    for (const BilevelLook look : {Gray, TwoColours}) {
        for (const Size size : {Size{190, 61}, Size{611, 203}, Size{900, 390}}) {
            const Rectangle destination{-17, 9, size.width, size.height};
            Canvas whole(200, 80);
            drawPicture(raster, wholePicture(raster), whole.surface, destination, all(whole), look);
            const Rectangle clip{41, 3, 90, 30};
            Canvas part(200, 80);
            drawPicture(raster, wholePicture(raster), part.surface, destination, clip, look);
            for (int32_t y = 0; y < 80; ++y) {
                for (int32_t x = 0; x < 200; ++x) {
                    const bool drawn = x >= 41 && x < 131 && y >= 9 && y < 33;
                    ASSERT_EQ(part.at(x, y), drawn ? whole.at(x, y) : Canvas::Untouched) << x << ", " << y;
                }
            }
        }
    }
}

TEST(Reducer, AHugeAreaInOnePixel) {
    for (const PixelFormat format : {PixelFormat::Bilevel, PixelFormat::Gray}) {
        const Raster raster = noise(format, 64, 20'011);
        Canvas canvas(2, 1);
        drawWhole(raster, canvas);
        EXPECT_LE(worstError(raster, wholePicture(raster), canvas, all(canvas)), 1);
    }
}

TEST(Reducer, ACheckerboardBecomesMidGray) {
    Raster raster = makeRaster(PixelFormat::Bilevel, 320, 200);
    for (int32_t y = 0; y < raster.height; ++y)
        std::ranges::fill(raster.row(y), static_cast<uint8_t>(y % 2 == 0 ? 0xAA : 0x55));
    Canvas canvas(160, 100);
    drawWhole(raster, canvas);
    for (const uint32_t pixel : canvas.pixels)
        ASSERT_TRUE(pixel == 0xFF7F7F7F || pixel == 0xFF808080);
}

TEST(Reducer, ThinLinesStayAndInkIsPreserved) {
    for (const int32_t at : {0, 1, 700, 1276, 2549}) {
        Raster raster = makeRaster(PixelFormat::Bilevel, 2550, 90);
        for (int32_t y = 0; y < raster.height; ++y)
            raster.row(y)[static_cast<size_t>(at / 8)] |= static_cast<uint8_t>(0x80U >> (at % 8));
        for (const int32_t width : {800, 1600, 2549}) {
            Canvas canvas(width, 30);
            drawWhole(raster, canvas);
            double ink = 0;
            for (const uint32_t pixel : canvas.surface.row(13))
                ink += (255 - channels(pixel)[0]) / 255;
            EXPECT_NEAR(ink, width / 2550.0, 0.01) << at << " at " << width;
        }
    }
}

TEST(Reducer, TwoColoursFavourInk) {
    Raster raster = picture({"#.....##", ".......#", "....#...", "....#..."});
    raster.bilevelColours = {0xFFFFF0, 0x000080};
    Canvas canvas(4, 2);
    drawWhole(raster, canvas, TwoColours);
    constexpr uint32_t paper = 0xFFFFFFF0;
    constexpr uint32_t ink = 0xFF000080;
    EXPECT_EQ(canvas.pixels, (std::vector{ink, paper, paper, ink, paper, paper, ink, paper}));

    // One pixel of nine or of five is less than a quarter, two of five are more.
    Canvas small(1, 1);
    drawWhole(picture({"#..", "...", "..."}), small, TwoColours);
    EXPECT_EQ(small.at(0, 0), 0xFFFFFFFF);
    drawWhole(picture({"#...."}), small, TwoColours);
    EXPECT_EQ(small.at(0, 0), 0xFFFFFFFF);
    drawWhole(picture({"#..#."}), small, TwoColours);
    EXPECT_EQ(small.at(0, 0), 0xFF000000);
}

TEST(Reducer, NothingToDrawDrawsNothing) {
    const Raster raster = noise(PixelFormat::Gray, 20, 20);
    Canvas canvas(10, 10);
    for (const Rectangle& clip : {Rectangle{10, 0, 5, 5}, Rectangle{0, -5, 5, 5}, Rectangle{3, 3, 0, 4}})
        drawPicture(raster, wholePicture(raster), canvas.surface, all(canvas), clip, Gray);
    drawPicture(raster, {20, 0, 5, 5}, canvas.surface, all(canvas), all(canvas), Gray);
    drawPicture(Raster(), canvas.surface);
    EXPECT_EQ(std::ranges::count(canvas.pixels, Canvas::Untouched), 100);
}

TEST(Reducer, TrueProportionOfUnequalResolutions) {
    Raster fax = makeRaster(PixelFormat::Bilevel, 1728, 1078);
    fax.xResolution = 204;
    fax.yResolution = 98;
    const Size inside = sizeInside(fax, {400, 500});
    EXPECT_EQ(inside.height, 500);
    EXPECT_NEAR(inside.width, 500 * (1728 / 204.0) / 11, 1);
    EXPECT_EQ(sizeInside(fax, {100, 5000}).width, 100);
    EXPECT_EQ(sizeInside(makeRaster(PixelFormat::Gray, 5000, 1), {50, 50}), (Size{50, 1}));
}

TEST(Reducer, ResizedPictures) {
    Raster page = noise(PixelFormat::Bilevel, 200, 100);
    page.xResolution = 300;
    page.yResolution = 200;
    for (const uint32_t ink : {0x000000U, 0x000080U}) {
        page.bilevelColours[1] = ink;
        const Raster small = resized(page, {40, 50});
        EXPECT_EQ(small.format, ink == 0 ? PixelFormat::Gray : PixelFormat::Rgb);
        EXPECT_DOUBLE_EQ(small.xResolution, 60);
        EXPECT_DOUBLE_EQ(small.yResolution, 100);
        Canvas canvas(40, 50);
        drawWhole(page, canvas);
        for (int32_t y = 0; y < 50; ++y)
            for (int32_t x = 0; x < 40; ++x)
                ASSERT_EQ(0xFF000000U | colourAt(small, x, y), canvas.at(x, y));
    }
}

} // namespace
} // namespace pixmo
