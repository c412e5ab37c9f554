#include "tests/behaviour/facetest.h"

#include <cmath>

namespace pixmo::behaviour {
namespace {

using testing::ElementsAre;

class ViewTest : public FaceTest {
protected:
    void zoomTo(int steps) {
        for (int step = 0; step < steps; ++step)
            face->command("ZOOMIN");
    }
    /// As large without its scroll bars, which are not as wide on every face.
    void makeView(int32_t width, int32_t height) {
        for (int turn = 0; turn < 2; ++turn) {
            const Picture shown = face->picture();
            controlSize_.first += width - shown.width;
            controlSize_.second += height - shown.height;
            face->resize(controlSize_.first, controlSize_.second);
            ASSERT_TRUE(waitUntilIdle());
        }
    }
    /// FNV-1a, 64 bit, over the picture without a margin for frames.
    static uint64_t sumOf(const Picture& picture) {
        uint64_t sum = 0xCBF29CE484222325U;
        for (int32_t y = Margin; y < picture.height - Margin; ++y)
            for (int32_t x = Margin; x < picture.width - Margin; ++x)
                sum = (sum ^ picture.at(x, y)) * 0x100000001B3U;
        return sum;
    }
    std::pair<int32_t, int32_t> place() {
        return {face->scroll(true).position, face->scroll(false).position};
    }
    /// The part of a picture that both show when one is moved by (dx, dy), without a margin for frames.
    static bool areEqualMoved(const Picture& from, const Picture& to, int32_t dx, int32_t dy) {
        for (int32_t y = Margin; y < to.height - Margin; ++y)
            for (int32_t x = Margin; x < to.width - Margin; ++x) {
                const int32_t fromX = x + dx;
                const int32_t fromY = y + dy;
                const bool seen = fromX >= Margin && fromY >= Margin && fromX < from.width - Margin &&
                                  fromY < from.height - Margin;
                if (seen && from.at(fromX, fromY) != to.at(x, y))
                    return false;
            }
        return true;
    }

    static constexpr int32_t Margin = 3;

private:
    std::pair<int32_t, int32_t> controlSize_ = {900, 700};
};

TEST_F(ViewTest, ShowsThePageFittedToTheWidth) {
    open(1);
    const Picture shown = face->picture();
    EXPECT_GT(darkShare(shown, 100), 3) << "no ink";
    EXPECT_LT(darkShare(shown, 200), 500) << "no paper";
    EXPECT_FALSE(face->scroll(true).visible);
    EXPECT_NEAR(zoom(), 100.0 * shown.width / 2550 * 300 / 96, 1);
    EXPECT_EQ(face->description(), "Page 1 of 12, " + std::to_string(zoom()) + " %");
}

// The same page, looked at in the same way in a view of the same size, is the same picture on every face.
TEST_F(ViewTest, ComposedPixelsAreThoseOfEveryFace) {
    struct Case {
        int32_t document;
        std::vector<const char*> commands;
        uint64_t sum;
    };
    face->set("BackColor", 0x00808080);
    for (const Case& each : {Case{sample::Deed, {"FITBEST"}, 0x11D5AD2CC0EE5623U},
                             Case{sample::Deed, {"FITBEST", "ROTR"}, 0x792FFAC113E9C042U},
                             Case{sample::Deed, {"FITBEST", "ZOOMIN", "ZOOMIN"}, 0xA5588DDE418EE98EU},
                             Case{sample::Deed, {"FITBEST", "GRAYSCALE"}, 0x48DFDF4650D7984DU},
                             Case{sample::Fax, {"FITBEST", "GRAYSCALE"}, 0xF75DEFB48559BAF9U},
                             Case{sample::Map, {"FITBEST"}, 0x975563448936614FU},
                             Case{sample::Map, {"FITBEST", "ROTL", "ZOOMIN"}, 0x72345D49321CB49CU}}) {
        SCOPED_TRACE(std::to_string(each.document) + " " + each.commands.back());
        open(1, each.document);
        for (const char* command : each.commands)
            face->command(command);
        makeView(700, 500);
        for (const int edge : {key::Up, key::Left})
            face->press(edge, with::Shift);
        ASSERT_TRUE(waitUntilIdle());
        const Picture shown = face->picture();
        EXPECT_EQ(std::make_pair(shown.width, shown.height), std::make_pair(700, 500));
        EXPECT_EQ(sumOf(shown), each.sum);
    }
}

TEST_F(ViewTest, ZoomsByATenth) {
    open(1);
    face->command("FITBEST");
    double expected = zoom();
    for (int step = 0; step < 4; ++step) {
        face->command("ZOOMIN");
        expected *= 1.1;
        EXPECT_NEAR(zoom(), expected, 1.5);
    }
    while (zoom() > 10) {
        const int before = zoom();
        face->command("ZOOMOUT");
        ASSERT_NEAR(zoom(), before * 0.9, 1);
    }
    const int last = zoom();
    EXPECT_GE(last, 9);
    face->command("ZOOMOUT");
    EXPECT_EQ(zoom(), last) << "not below";
}

TEST_F(ViewTest, RotatesByQuarterTurns) {
    open(1);
    face->command("FITBEST");
    const Picture upright = face->picture();
    face->clickButton("ROTR");
    const Picture right = face->picture();
    EXPECT_NE(right, upright);
    face->clickButton("ROTL");
    EXPECT_EQ(face->picture(), upright);
    face->clickButton("ROTL");
    const Picture left = face->picture();
    EXPECT_NE(left, right);
    for (int turn = 0; turn < 2; ++turn)
        face->clickButton("ROTR");
    EXPECT_EQ(face->picture(), right);
}

TEST_F(ViewTest, DragsPan) {
    open(1);
    zoomTo(8);
    const auto from = place();
    const Picture before = face->picture();
    face->drag(400, 300, 360, 220);
    EXPECT_EQ(face->pointer(), 15);
    EXPECT_EQ(place(), std::make_pair(from.first + 40, from.second + 80));
    EXPECT_LT(grayShare(face->picture()), grayShare(before) / 10) << "fast while it is dragged";
    face->release();
    EXPECT_EQ(face->pointer(), 0);
    EXPECT_TRUE(areEqualMoved(before, face->picture(), 40, 80));
    face->drag(400, 300, 380, 300);
    face->press(key::Escape);
    face->release();
    EXPECT_EQ(place(), std::make_pair(from.first + 40, from.second + 80)) << "taken back";
    face->drag(400, 300, 420, 300, Mouse::Middle);
    face->release(Mouse::Middle);
    EXPECT_EQ(place(), std::make_pair(from.first + 20, from.second + 80));
}

TEST_F(ViewTest, ARubberBandIsZoomedTo) {
    open(1);
    face->clickButton("SELECTION");
    const int before = zoom();
    const Picture page = face->picture();
    face->drag(100, 100, 100 + page.width / 4, 100 + page.height / 4);
    EXPECT_EQ(face->pointer(), 2);
    EXPECT_NE(face->picture(), page) << "the band is seen";
    face->release();
    EXPECT_NEAR(zoom(), 4.0 * before, 0.04 * before + 2);
    const int zoomed = zoom();
    face->click(200, 200);
    EXPECT_EQ(zoom(), zoomed) << "a click is no band";
    face->clickButton("PAN");
    face->drag(200, 200, 190, 190);
    face->release();
    EXPECT_EQ(zoom(), zoomed) << "pans again";
}

TEST_F(ViewTest, TheWheelScrollsAndZooms) {
    open(2);
    face->wheel(300, 300, -2);
    EXPECT_GT(face->scroll(false).position, 0);
    face->wheel(300, 300, 10);
    EXPECT_EQ(face->scroll(false).position, 0);
    EXPECT_EQ(page(), 2) << "the wheel does not turn pages";
    const int before = zoom();
    face->wheel(300, 300, 2, with::Ctrl);
    EXPECT_NEAR(zoom(), before * 1.21, 1.5);
    face->wheel(300, 300, -1, with::Shift);
    EXPECT_GT(face->scroll(true).position, 0) << "sideways";
}

TEST_F(ViewTest, GrayScaleShowsGrays) {
    open(1);
    const Picture gray = face->picture();
    EXPECT_GT(grayShare(gray), 10);
    face->press('G', with::Ctrl + with::Shift);
    const Picture plain = face->picture();
    EXPECT_LT(grayShare(plain), 3) << "black, white and the frame only";
    face->press('G', with::Ctrl + with::Shift);
    EXPECT_EQ(face->picture(), gray);
}

TEST_F(ViewTest, GrayScaleRestsWhileTheSizeChanges) {
    open(1);
    face->set("ResizeDelay", 400);
    const int gray = grayShare(face->picture());
    face->resize(880, 690);
    EXPECT_LT(grayShare(face->picture()), gray / 5);
    EXPECT_FALSE(face->isIdle());
    face->resize(870, 680);
    ASSERT_TRUE(waitUntilIdle());
    EXPECT_GT(grayShare(face->picture()), gray / 2) << "it is back";
    face->press('G', with::Ctrl + with::Shift);
    face->resize(900, 700);
    ASSERT_TRUE(waitUntilIdle());
    EXPECT_LT(grayShare(face->picture()), gray / 5) << "what the user switched off stays off";
}

TEST_F(ViewTest, FitsFollowTheSize) {
    open(1);
    for (const auto& [width, height] : {std::pair{500, 600}, std::pair{1100, 500}}) {
        face->resize(width, height);
        ASSERT_TRUE(waitUntilIdle());
        EXPECT_NEAR(zoom(), 100.0 * face->picture().width / 2550 * 300 / 96, 1) << width;
    }
    face->command("FITBEST");
    face->resize(600, 640);
    ASSERT_TRUE(waitUntilIdle());
    EXPECT_FALSE(face->scroll(true).visible);
    EXPECT_FALSE(face->scroll(false).visible);
    for (const auto& [width, height] : {std::pair{90, 60}, std::pair{1, 1}, std::pair{800, 600}}) {
        face->resize(width, height);
        EXPECT_TRUE(waitUntilIdle()) << width;
    }
    EXPECT_GT(darkShare(face->picture(), 100), 1) << "shown again after it was too small";
}

TEST_F(ViewTest, ColoursOfThePageAreTheScreens) {
    open(1, sample::Map);
    face->command("FITBEST");
    const Picture shown = face->picture();
    int coloured = 0;
    for (const uint32_t pixel : shown.pixels) {
        const auto red = static_cast<int>(pixel >> 16 & 0xFF);
        const auto blue = static_cast<int>(pixel & 0xFF);
        coloured += std::abs(red - blue) > 40 ? 1 : 0;
    }
    EXPECT_GT(coloured, 1000);
    face->set("BackColor", 0x00112233);
    EXPECT_EQ(face->picture().at(2, 2), 0x332211U) << "blue, green, red in the property";
}

TEST_F(ViewTest, ClicksAreTheHostsToo) {
    open(1);
    face->takeEvents();
    face->click(100, 100);
    EXPECT_THAT(events({"Click", "DblClick"}), ElementsAre("Click"));
    face->doubleClick(300, 300);
    EXPECT_THAT(events({"Click", "DblClick"}), testing::Contains("DblClick").Times(1));
}

TEST_F(ViewTest, AFrameTellsWhereTheKeyboardIs) {
    open(1);
    face->command("FITBEST");
    const Picture focused = face->picture();
    EXPECT_EQ(focused.at(0, 0), focused.at(focused.width - 1, focused.height - 1));
    EXPECT_NE(focused.at(0, 0), focused.at(2, 2));
    face->clickHostField("behind");
    const Picture other = face->picture();
    EXPECT_EQ(other.at(0, 0), other.at(2, 2));
    face->clickHostField("before");
    face->press(key::Tab);
    EXPECT_EQ(face->picture(), focused);
}

TEST_F(ViewTest, EveryPageKeepsItsPlace) {
    open(1);
    zoomTo(6);
    face->press(key::Down);
    const auto kept = place();
    const int keptZoom = zoom();
    face->press(key::PageDown);
    ASSERT_TRUE(waitForPage(2));
    face->press('H', with::Ctrl + with::Shift);
    face->press(key::PageUp);
    ASSERT_TRUE(waitForPage(1));
    EXPECT_EQ(place(), kept);
    EXPECT_EQ(zoom(), keptZoom);
}

} // namespace
} // namespace pixmo::behaviour
