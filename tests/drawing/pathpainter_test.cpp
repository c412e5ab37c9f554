#include "core/drawing/pathpainter.h"
#include "core/drawing/programpicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numbers>
#include <vector>

namespace pixmo {
namespace {

/// 20 by 20 pixels in the middle of a larger field, whose margin shows what is painted beyond the edges.
class Canvas {
public:
    explicit Canvas(uint32_t fill = 0xFF000000) : pixels(Side * Side, fill), fill_(fill) {}

    PixelSurface surface() { return {pixels.data() + Margin * Side + Margin, 20, 20, Side}; }
    uint32_t at(size_t x, size_t y) const { return pixels[(y + Margin) * Side + x + Margin]; }
    uint32_t blue(size_t x, size_t y) const { return at(x, y) & 0xFFU; }
    /// How much white there is on the black, in pixels.
    double covered() const {
        double sum = 0;
        for (const uint32_t pixel : pixels)
            sum += (pixel & 0xFFU) / 255.0;
        return sum;
    }
    bool isMarginClean() const {
        for (size_t i = 0; i < pixels.size(); ++i) {
            const size_t x = i % Side;
            const size_t y = i / Side;
            const bool inside = x >= Margin && x < Margin + 20 && y >= Margin && y < Margin + 20;
            if (!inside && pixels[i] != fill_)
                return false;
        }
        return true;
    }

    static constexpr size_t Margin = 6;
    static constexpr size_t Side = 20 + 2 * Margin;
    std::vector<uint32_t> pixels;

private:
    uint32_t fill_;
};

constexpr uint32_t White = 0xFFFFFFFF;

TEST(PathPainter, RectanglesCoverPartsOfPixels) {
    Canvas canvas;
    PathPainter(canvas.surface()).fill(RealRectangle{1.5, 2, 2, 1}, White);
    EXPECT_NEAR(canvas.blue(1, 2), 128, 1);
    EXPECT_EQ(canvas.blue(2, 2), 255U);
    EXPECT_NEAR(canvas.blue(3, 2), 128, 1);
    EXPECT_NEAR(canvas.covered(), 2, 0.02);
    Canvas framed;
    PathPainter(framed.surface(), 2).frame({1, 1, 4, 3}, 1, White);
    EXPECT_NEAR(framed.covered(), 4 * (12 - 2), 0.01) << "at twice the size";
    EXPECT_EQ(framed.blue(4, 4), 0U) << "hollow";
}

TEST(PathPainter, StrokesAreAsWideAsAskedWithRoundEnds) {
    struct Case {
        const char* path;
        double width;
        double area;
    };
    constexpr double Pi = std::numbers::pi;
    for (const Case& c :
         {Case{"M 4 10 L 16 10", 2, 12 * 2 + Pi}, Case{"M 4 10 L 16 10", 0.5, 12 * 0.5 + Pi / 16},
          Case{"M 4 4 L 14 4 L 14 14", 3, 20 * 3 + Pi * 2.25}, Case{"A 10 10 6 0 360", 2, 2 * Pi * 6 * 2},
          Case{"A 10 10 6 0 -90", 2, Pi * 3 * 2 + Pi}, Case{"M 4 4 L 14 4 L 14 14 Z", 1, 20 + 14.14}}) {
        Canvas canvas;
        PathPainter(canvas.surface()).stroke(Path(c.path), c.width, White);
        EXPECT_NEAR(canvas.covered(), c.area, c.area * 0.08 + 0.8) << c.path << " " << c.width;
    }
}

TEST(PathPainter, AreasKeepTheirHoles) {
    Canvas canvas;
    const Path ring("M 2 2 L 18 2 L 18 18 L 2 18 Z M 6 6 L 14 6 L 14 14 L 6 14 Z");
    PathPainter(canvas.surface()).fill(ring, White);
    EXPECT_NEAR(canvas.covered(), 256 - 64, 0.5);
    EXPECT_EQ(canvas.blue(10, 10), 0U);
    Canvas disc;
    Path circle;
    circle.addEllipse({10, 10}, 7);
    PathPainter(disc.surface()).fill(circle, White);
    EXPECT_NEAR(disc.covered(), std::numbers::pi * 49, 1);
    Canvas plate;
    Path rounded;
    rounded.addRoundedRectangle({1, 3, 18, 12}, 4);
    PathPainter(plate.surface()).fill(rounded, White);
    EXPECT_NEAR(plate.covered(), 18 * 12 - (4 - std::numbers::pi) * 16, 1);
    EXPECT_EQ(plate.blue(1, 3), 0U) << "the corner is off";
}

TEST(PathPainter, NothingIsPaintedBeyondTheEdges) {
    Canvas canvas;
    PathPainter painter(canvas.surface());
    painter.fill(RealRectangle{-100, 15, 300, 400}, White);
    painter.stroke(Path("M -10 -10 L 40 40 M 5 -5 L 5 60"), 9, White);
    painter.fill(Path("M -30 -30 L 50 -30 L 10 50 Z"), White);
    painter.frame({-2, -2, 24, 24}, 3, White);
    EXPECT_TRUE(canvas.isMarginClean());
    EXPECT_EQ(canvas.blue(19, 19), 255U);
}

TEST(PathPainter, ColoursMixByAlpha) {
    Canvas opaque(0xFF204060);
    PathPainter(opaque.surface()).fill(RealRectangle{0, 0, 5, 5}, withAlpha(0xE08020, 128));
    EXPECT_EQ(opaque.at(2, 2), 0xFF806040U);
    // A transparent surface holds its colours multiplied by alpha.
    Canvas transparent(0);
    PathPainter painter(transparent.surface());
    painter.fill(RealRectangle{0, 0, 5, 5}, withAlpha(0xFF0000, 128));
    EXPECT_EQ(transparent.at(2, 2), 0x80800000U);
    painter.fill(RealRectangle{0, 0, 5, 5}, 0xFF00FF00);
    EXPECT_EQ(transparent.at(2, 2), 0xFF00FF00U);
}

TEST(Path, WordsThatAreUnknownEndIt) {
    EXPECT_EQ(Path("M 1 1 L 2 2 X L 3 3").lines().front().points.size(), 2U);
    EXPECT_TRUE(Path("").lines().empty());
    EXPECT_TRUE(Path("L 3 3 Z").lines().front().closed) << "a line without its beginning begins there";
    Canvas canvas;
    PathPainter(canvas.surface()).stroke(Path("Z"), 2, White);
    EXPECT_EQ(canvas.covered(), 0);
}

TEST(ProgramPicture, IsAPageOnNothing) {
    EXPECT_TRUE(programPicture(0).empty());
    EXPECT_TRUE(programPicture(-3).empty());
    for (const int32_t size : {16, 32, 64}) {
        const auto pixels = programPicture(size);
        const auto at = [&](int32_t x, int32_t y) {
            return pixels[static_cast<size_t>(y) * static_cast<size_t>(size) + static_cast<size_t>(x)];
        };
        EXPECT_EQ(at(0, 0), 0U);
        EXPECT_EQ(at(size - 1, 1), 0U) << "the corner is turned";
        EXPECT_EQ(at(size / 2, size * 6 / 16) >> 24U, 255U);
        EXPECT_GT(std::ranges::count(pixels, 0xFFFFFFFFU), size * size / 10) << "paper";
    }
}

} // namespace
} // namespace pixmo
