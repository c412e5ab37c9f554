#include "core/imaging/viewgeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace pixmo {
namespace {

/// 1700 by 2200 pixels at 200 dpi: 8.5 by 11 inches.
ViewGeometry letter(Size viewport, double dotsPerInch = 96) {
    ViewGeometry geometry;
    geometry.setPicture({1700, 2200}, 200, 200);
    geometry.setViewport(viewport, dotsPerInch);
    return geometry;
}

TEST(ViewGeometry, EveryFitAtEveryPixelRatio) {
    for (const double ratio : {1.0, 1.5, 2.0}) {
        const auto device = [&](double length) { return static_cast<int32_t>(std::lround(length * ratio)); };
        ViewGeometry geometry = letter({device(850), device(500)}, 96 * ratio);

        geometry.fitWidth();
        EXPECT_EQ(geometry.sizeMode(), SizeMode::FitWidth);
        EXPECT_EQ(geometry.destination(), (Rectangle{0, 0, device(850), device(1100)}));
        EXPECT_NEAR(geometry.zoom(), 85000 / 816.0, 1e-4);
        EXPECT_EQ(geometry.verticalBar().maximum, device(600));
        EXPECT_EQ(geometry.verticalBar().pageStep, device(500));
        EXPECT_EQ(geometry.horizontalBar().maximum, 0);

        geometry.fitBest();
        EXPECT_EQ(geometry.sizeMode(), SizeMode::FitBest);
        EXPECT_EQ(geometry.destination().height, device(500));
        EXPECT_EQ(geometry.destination().left, (device(850) - geometry.destination().width) / 2);

        geometry.setViewport({device(300), device(1100)}, 96 * ratio);
        EXPECT_EQ(geometry.destination().width, device(300));
        geometry.fitHeight();
        EXPECT_EQ(geometry.sizeMode(), SizeMode::Zoom);
        EXPECT_EQ(geometry.destination().height, device(1100));
        EXPECT_NEAR(geometry.zoom(), 110000 / 1056.0, 1e-4);

        geometry.setZoom(100, {});
        EXPECT_EQ(geometry.destination().width, device(816));
        EXPECT_EQ(geometry.destination().height, device(1056));
    }
}

TEST(ViewGeometry, FitsHoldOnResizePageTurnAndRotation) {
    ViewGeometry geometry = letter({400, 600});
    geometry.fitHeight();
    geometry.setViewport({500, 700}, 96);
    EXPECT_EQ(geometry.destination().height, 700);
    geometry.setPicture({1000, 300}, 100, 100);
    EXPECT_EQ(geometry.destination().height, 700);
    geometry.turnPicture(Turn::Right);
    EXPECT_EQ(geometry.picture(), (Size{300, 1000}));
    EXPECT_EQ(geometry.destination(), (Rectangle{145, 0, 210, 700}));
    geometry.fitWidth();
    geometry.turnPicture(Turn::Left);
    EXPECT_EQ(geometry.destination().width, 500);
}

TEST(ViewGeometry, UnequalResolutionsInTrueProportion) {
    ViewGeometry geometry;
    geometry.setPicture({1728, 1078}, 204, 98);
    geometry.setViewport({816, 400}, 96);
    geometry.setZoom(100, {});
    EXPECT_EQ(geometry.destination().width, 813);
    EXPECT_EQ(geometry.destination().height, 1056);
    geometry.turnPicture(Turn::Left);
    EXPECT_EQ(geometry.destination().width, 1056);
    EXPECT_EQ(geometry.destination().height, 813);
}

TEST(ViewGeometry, ScrollingEndsWithThePicture) {
    ViewGeometry geometry = letter({400, 300});
    geometry.setZoom(100, {});
    geometry.scrollTo(-5, 100'000);
    EXPECT_EQ(geometry.destination(), (Rectangle{0, 300 - 1056, 816, 1056}));
    EXPECT_EQ(geometry.verticalBar().position, geometry.verticalBar().maximum);
    EXPECT_EQ(geometry.visibleDestination(), (Rectangle{0, 0, 400, 300}));
    const RealRectangle source = geometry.visibleSource();
    EXPECT_NEAR(source.width, 1700 * 400 / 816.0, 1e-9);
    EXPECT_NEAR(source.top + source.height, 2200, 1e-9);
    geometry.setPicture({1700, 2200}, 200, 200);
    EXPECT_EQ(geometry.verticalBar().position, 0);
    EXPECT_EQ(geometry.zoom(), 100);
}

TEST(ViewGeometry, ZoomingKeepsThePointInPlace) {
    std::mt19937 random(3);
    ViewGeometry geometry = letter({640, 480});
    geometry.setZoom(400, {});
    geometry.scrollTo(1000, 1500);
    for (int i = 0; i < 200; ++i) {
        const RealPoint anchor{static_cast<double>(random() % 640), static_cast<double>(random() % 480)};
        const RealPoint before = geometry.toPicture(anchor);
        geometry.setZoom(200 + static_cast<float>(random() % 5000), anchor);
        // Only where a gap would open beside the picture may it move.
        const ScrollBar across = geometry.horizontalBar();
        const ScrollBar down = geometry.verticalBar();
        const RealPoint after = geometry.toView(before);
        if (across.position > 0 && across.position < across.maximum) {
            EXPECT_NEAR(after.x, anchor.x, 0.51);
        }
        if (down.position > 0 && down.position < down.maximum) {
            EXPECT_NEAR(after.y, anchor.y, 0.51);
        }
        const RealPoint back = geometry.toPicture(after);
        EXPECT_NEAR(back.x, before.x, 1e-6);
        EXPECT_NEAR(back.y, before.y, 1e-6);
    }
}

TEST(ViewGeometry, ResizingKeepsTheMiddleOfAZoomedView) {
    ViewGeometry geometry = letter({400, 300});
    geometry.setZoom(300, {});
    geometry.scrollTo(700, 900);
    const RealPoint middle = geometry.toPicture(geometry.middle());
    geometry.setViewport({800, 700}, 96);
    EXPECT_NEAR(geometry.toPicture(geometry.middle()).x, middle.x, 1);
    geometry.setViewport({800, 700}, 192);
    EXPECT_NEAR(geometry.toPicture(geometry.middle()).y, middle.y, 1);
    EXPECT_EQ(geometry.destination().width, 816 * 6);
    EXPECT_EQ(geometry.zoom(), 300);
}

TEST(ViewGeometry, ManySizesLaterThePlaceIsTheSame) {
    ViewGeometry geometry = letter({400, 300});
    geometry.setZoom(300, {});
    geometry.scrollTo(700, 900);
    const Rectangle place = geometry.destination();
    const ViewPlace kept = geometry.keptPlace();
    for (int turn = 0; turn < 20; ++turn) {
        geometry.setViewport({383 + turn, 283 - 3 * turn}, 96);
        geometry.setViewport({400, 300}, 96);
    }
    EXPECT_EQ(geometry.destination(), place);
    EXPECT_EQ(geometry.keptPlace(), kept);
    geometry.scrollTo(10, 20);
    geometry.setViewport({383, 283}, 96);
    EXPECT_NEAR(geometry.destination().left, -18, 1) << "from where it was scrolled to";
}

TEST(ViewGeometry, TurningKeepsTheMiddle) {
    ViewGeometry geometry = letter({300, 300});
    geometry.setZoom(200, {});
    geometry.scrollTo(200, 1500);
    const RealPoint middle = geometry.toPicture(geometry.middle());
    geometry.turnPicture(Turn::Right);
    EXPECT_NEAR(geometry.toPicture(geometry.middle()).x, 2200 - middle.y, 1);
    EXPECT_NEAR(geometry.toPicture(geometry.middle()).y, middle.x, 1);
    geometry.turnPicture(Turn::Left);
    EXPECT_NEAR(geometry.toPicture(geometry.middle()).x, middle.x, 1);
    EXPECT_NEAR(geometry.toPicture(geometry.middle()).y, middle.y, 1);
}

TEST(ViewGeometry, ZoomToRectangle) {
    ViewGeometry geometry = letter({400, 300});
    geometry.setZoom(100, {});
    geometry.scrollTo(100, 200);
    const RealPoint middle = geometry.toPicture({250, 130});
    geometry.zoomToRectangle({200, 100, 100, 60});
    EXPECT_FLOAT_EQ(geometry.zoom(), 400);
    EXPECT_NEAR(geometry.toView(middle).x, 200, 1);
    EXPECT_NEAR(geometry.toView(middle).y, 150, 1);
    const ViewGeometry before = geometry;
    for (const RealRectangle& none : {RealRectangle{1, 1, 0, 5}, {1, 1, 5, -1}, {1, 1, 1e-45, 1e-45}})
        geometry.zoomToRectangle(none);
    EXPECT_EQ(geometry, before);
}

TEST(ViewGeometry, PlacesAreFoundAgain) {
    for (const float zoom : {3.33F, 33.3F, 49.5F, 100.F, 789.F}) {
        ViewGeometry geometry = letter({400, 300});
        geometry.setZoom(zoom, {});
        geometry.scrollTo(77, 88);
        const Rectangle place = geometry.destination();
        geometry.fitBest();
        geometry.place(place);
        EXPECT_EQ(geometry.destination(), place);
        EXPECT_EQ(geometry.sizeMode(), SizeMode::Zoom);
    }
}

TEST(ViewGeometry, ExtremesStayWithinWholePixels) {
    ViewGeometry geometry = letter({400, 300});
    geometry.setZoom(1e30F, {});
    EXPECT_EQ(geometry.zoom(), 1e30F);
    EXPECT_EQ(geometry.destination().width, 1 << 28);
    geometry.setZoom(1e-30F, {});
    EXPECT_EQ(geometry.destination(), (Rectangle{199, 149, 1, 1}));
    geometry.setViewport({0, 0}, 96);
    geometry.fitBest();
    EXPECT_TRUE(geometry.visibleDestination().empty());
    EXPECT_GT(geometry.zoom(), 0);

    ViewGeometry empty;
    empty.setViewport({400, 300}, 96);
    empty.setZoom(250, {});
    empty.scrollTo(5, 5);
    EXPECT_TRUE(empty.destination().empty());
    EXPECT_EQ(empty.verticalBar().maximum, 0);
    EXPECT_EQ(empty.zoom(), 250);
}

// A face that reserves room for a bar must not come to want none because of it.
TEST(ViewGeometry, SizesInOtherViewports) {
    ViewGeometry geometry = letter({850, 1105});
    geometry.fitWidth();
    EXPECT_EQ(geometry.sizeIn({850, 1105}), (Size{850, 1100}));
    EXPECT_EQ(geometry.sizeIn({834, 1090}), (Size{834, 1079}));
    EXPECT_EQ(geometry.destination(), (Rectangle{0, 2, 850, 1100}));
    const Size bar = {16, 15};
    struct Case {
        Size window;
        bool horizontal;
        bool vertical;
    };
    for (const Case& c :
         {Case{{850, 1105}, false, false}, Case{{850, 1099}, false, true}, Case{{400, 300}, false, true}}) {
        const ViewGeometry::Bars bars = geometry.barsIn(c.window, bar);
        EXPECT_EQ(bars.horizontal, c.horizontal) << c.window.height;
        EXPECT_EQ(bars.vertical, c.vertical) << c.window.height;
    }
    geometry.setZoom(100, {});
    // At its own size, 816 by 1056, the room that one bar takes makes the other one necessary.
    for (const Case& c :
         {Case{{816, 1056}, false, false}, Case{{816, 1055}, true, true}, Case{{832, 1055}, false, true},
          Case{{815, 1071}, true, false}, Case{{815, 1070}, true, true}}) {
        const ViewGeometry::Bars bars = geometry.barsIn(c.window, bar);
        EXPECT_EQ(bars.horizontal, c.horizontal) << c.window.width << " " << c.window.height;
        EXPECT_EQ(bars.vertical, c.vertical) << c.window.width << " " << c.window.height;
    }
    EXPECT_FALSE(ViewGeometry().barsIn({100, 100}, bar).vertical);
}

} // namespace
} // namespace pixmo
