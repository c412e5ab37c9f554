#include "core/imaging/rasterview.h"

#include "core/base/error.h"
#include "tests/imaging/pictures.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace pixmo {
namespace {

using test::Canvas;
using test::noise;

class Screen : public ViewSurface {
public:
    void repaint() override { ++repaints; }
    int32_t width() const override { return size.width; }
    int32_t height() const override { return size.height; }
    double devicePixelRatio() const override { return ratio; }
    void setPointer(int32_t code) override { pointer = code; }

    int repaints = 0;
    Size size{120, 90};
    double ratio = 1;
    int32_t pointer = 0;
};

class RasterViewTest : public testing::Test {
protected:
    RasterViewTest() {
        view.Changed.connect([this] { ++changes; });
    }

    /// What another view, without a past, shows in the same state.
    std::vector<uint32_t> fromScratch() {
        RasterView fresh(screen);
        fresh.setRaster(view.raster());
        fresh.setGrayScale(view.GrayScale());
        fresh.setBackground(view.background());
        fresh.setRectangles(view.rectangles());
        Canvas canvas(screen.size.width, screen.size.height);
        fresh.compose(canvas.surface);
        return canvas.pixels;
    }

    std::vector<uint32_t> composed() {
        Canvas canvas(screen.size.width, screen.size.height);
        view.compose(canvas.surface);
        return canvas.pixels;
    }

    Screen screen;
    RasterView view{screen};
    int changes = 0;
};

TEST_F(RasterViewTest, PaintsThePageAndTheBackgroundAroundIt) {
    view.setBackground(0x405060);
    EXPECT_EQ(composed(), std::vector<uint32_t>(size_t{120} * 90, 0xFF405060));
    Raster page = makeRaster(PixelFormat::Bilevel, 60, 30);
    page.bilevelColours[0] = 0xFFFFF0;
    view.setRaster(page);
    view.setZoom(150);
    EXPECT_EQ(view.geometry().destination(), (Rectangle{15, 22, 90, 45}));
    const auto pixels = composed();
    for (int32_t y = 0; y < 90; ++y)
        for (int32_t x = 0; x < 120; ++x)
            ASSERT_EQ(pixels[static_cast<size_t>(y * 120 + x)],
                      x >= 15 && x < 105 && y >= 22 && y < 67 ? 0xFFFFFFF0 : 0xFF405060);
    view.clear();
    EXPECT_FALSE(view.hasPicture());
    EXPECT_EQ(composed(), std::vector<uint32_t>(size_t{120} * 90, 0xFF405060));
}

TEST_F(RasterViewTest, ScrolledPaintingsAreThoseFromScratch) {
    for (const PixelFormat format : {PixelFormat::Bilevel, PixelFormat::Gray, PixelFormat::Rgb}) {
        view.setRaster(noise(format, 700, 500));
        for (const float zoom : {31.F, 100.F, 170.F}) {
            view.setZoom(zoom);
            for (const auto& [dx, dy] : {std::pair{0, 0},
                                         {0, 7},
                                         {0, -3},
                                         {9, 0},
                                         {-4, 0},
                                         {5, 6},
                                         {-20, 11},
                                         {60, -9},
                                         {-3, -3},
                                         {118, 88},
                                         {-119, 2},
                                         {2, 400},
                                         {-500, -500}}) {
                view.scrollBy(dx, dy);
                ASSERT_EQ(composed(), fromScratch()) << zoom << "%, by " << dx << ", " << dy;
            }
        }
    }
}

TEST_F(RasterViewTest, NothingOfAnEarlierPaintingStays) {
    view.setRaster(noise(PixelFormat::Bilevel, 700, 500));
    view.setZoom(50);
    const std::vector<std::function<void()>> steps = {
        [&] { view.setGrayScale(false); },
        [&] { view.setBackground(0x010203); },
        [&] { view.setZoom(49.5); },
        [&] { view.rotateRight(); },
        [&] { view.setRaster(noise(PixelFormat::Bilevel, 700, 500, 99)); },
        [&] {
            screen.size = {90, 120};
            view.resize();
        },
        [&] { view.setZoom(5); },
    };
    for (const auto& step : steps) {
        composed();
        screen.repaints = 0;
        step();
        EXPECT_EQ(screen.repaints, 1);
        EXPECT_EQ(composed(), fromScratch());
    }
}

TEST_F(RasterViewTest, ChangesAreToldOnceAndOnlyWhenThereAreAny) {
    const auto expectChange = [&](int expected, const std::function<void()>& step) {
        changes = screen.repaints = 0;
        step();
        EXPECT_EQ(changes, expected);
        EXPECT_EQ(screen.repaints, expected);
    };
    expectChange(1, [&] { view.setRaster(noise(PixelFormat::Gray, 300, 200)); });
    expectChange(1, [&] { view.setZoom(300); });
    expectChange(0, [&] { view.setZoom(300); });
    expectChange(1, [&] { view.scrollBy(3, 4); });
    expectChange(1, [&] { view.scrollBy(std::numeric_limits<int32_t>::min(), 0); });
    expectChange(0, [&] { view.scrollBy(-1, 0); });
    expectChange(1, [&] { view.fitHeight(); });
    expectChange(0, [&] { view.resize(); });
    expectChange(1, [&] {
        screen.ratio = 2;
        view.setZoom(10);
    });
    expectChange(1, [&] { view.resize(); });
    expectChange(0, [&] { view.resize(); });
    expectChange(1, [&] { view.zoomToRectangle(0, 0, 50, 20); });
    expectChange(1, [&] { view.rotateLeft(); });
    expectChange(1, [&] { view.clear(); });
    expectChange(0, [&] { view.rotateLeft(); });
}

TEST_F(RasterViewTest, RepaintsOnceWhenRepaintingWasOff) {
    view.setRaster(noise(PixelFormat::Gray, 300, 200));
    screen.repaints = 0;
    view.setAutoRepaint(false);
    view.setZoom(200);
    view.scrollBy(1, 1);
    view.setGrayScale(false);
    EXPECT_EQ(screen.repaints, 0);
    view.setAutoRepaint(true);
    view.setAutoRepaint(true);
    EXPECT_EQ(screen.repaints, 1);
}

TEST_F(RasterViewTest, ANewPictureKeepsTheFitAndForgetsTheTurn) {
    view.setRaster(noise(PixelFormat::Bilevel, 200, 400));
    view.fitWidth();
    view.rotateRight();
    EXPECT_EQ(view.raster().width, 400);
    view.scrollTo(0, 1000);
    view.setRaster(noise(PixelFormat::Bilevel, 200, 400));
    EXPECT_EQ(view.raster().width, 200);
    EXPECT_EQ(view.sizeMode(), SizeMode::FitWidth);
    EXPECT_EQ(view.geometry().destination(), (Rectangle{0, 0, 120, 240}));
}

TEST_F(RasterViewTest, SizeModesAndTheirRefusals) {
    view.setRaster(noise(PixelFormat::Gray, 300, 200));
    view.fitWidth();
    const float fitted = view.zoom();
    view.setSizeMode(SizeMode::Zoom);
    EXPECT_EQ(view.sizeMode(), SizeMode::Zoom);
    EXPECT_EQ(view.zoom(), fitted);
    view.setSizeMode(SizeMode::FitBest);
    EXPECT_EQ(view.sizeMode(), SizeMode::FitBest);
    constexpr float infinite = std::numeric_limits<float>::infinity();
    for (const float bad : {0.F, -1.F, infinite, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_THROW(view.setZoom(bad), Error) << bad;
    EXPECT_THROW(view.setSizeMode(static_cast<SizeMode>(1)), Error);
    EXPECT_THROW(view.setSurfaceResolution(0), Error);
    ViewRectangles bad = view.rectangles();
    bad.destination.left = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(view.setRectangles(bad), Error);
    EXPECT_EQ(view.sizeMode(), SizeMode::FitBest);

    view.setSurfaceResolution(192);
    view.setZoom(100);
    EXPECT_EQ(view.geometry().destination().width, 600);
    view.setPointer(static_cast<int32_t>(Pointer::SizeAll));
    EXPECT_EQ(screen.pointer, 15);
}

TEST_F(RasterViewTest, RectanglesSayWhatIsShownWhere) {
    view.setRaster(noise(PixelFormat::Gray, 300, 40));
    view.setZoom(200);
    view.scrollTo(100, 0);
    const ViewRectangles shown = view.rectangles();
    EXPECT_EQ(shown.source, (RealRectangle{0, 0, 300, 40}));
    EXPECT_DOUBLE_EQ(shown.sourceClip.left, 50);
    EXPECT_DOUBLE_EQ(shown.sourceClip.width, 60);
    EXPECT_DOUBLE_EQ(shown.sourceClip.height, 40);
    EXPECT_EQ(shown.destination, (RealRectangle{-100, 5, 600, 80}));
    EXPECT_EQ(shown.destinationClip, (RealRectangle{0, 5, 120, 80}));
    view.fitBest();
    view.setRectangles(shown);
    EXPECT_EQ(view.rectangles().destination, shown.destination);
}

} // namespace
} // namespace pixmo
