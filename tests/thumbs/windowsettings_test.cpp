#include "tests/thumbs/thumbsfixture.h"

namespace pixmo {
namespace {

constexpr const char* Section = "dlgThumbs.";

class WindowSettings : public ThumbsFixture {
protected:
    void keep(const char* key, const std::string& value) { control.settings->values[{Section, key}] = value; }
    std::string kept(const char* key) { return control.settings->values[{Section, key}]; }
};

TEST_F(WindowSettings, KeptFromRunToRun) {
    keep("mnuPopToolbar", "False");
    keep("mnuPopup1ButtonCaptions", "True");
    keep("mnuPopup1LargeButtons", "nonsense");
    keep("ItemSizeFactor", "150");
    open(3);
    EXPECT_FALSE(thumbs()->mnuPopToolbar);
    EXPECT_TRUE(thumbs()->mnuPopup1ButtonCaptions);
    EXPECT_TRUE(thumbs()->mnuPopup1LargeButtons);
    EXPECT_EQ(thumbs()->itemSizeFactor(), 150);
    EXPECT_EQ(thumbs()->grid().pictureSize(), (Size{150, 195}));
    thumbs()->mnuPopup1LargeButtons = false;
    thumbs()->smaller();
    control.destroy();
    EXPECT_EQ(kept("mnuPopup1LargeButtons"), "False");
    EXPECT_EQ(kept("mnuPopToolbar"), "False");
    EXPECT_EQ(kept("ItemSizeFactor"), "140");
}

TEST_F(WindowSettings, SizesInSteps) {
    struct Case {
        const char* kept;
        int32_t read;
    };
    for (const Case& one : {Case{"20", 20},
                            {"0", 100},
                            {"-50", 100},
                            {"5", 20},
                            {"301", 300},
                            {"99999999999", 300},
                            {"abc", 100},
                            {"143", 140}}) {
        scripted::ScriptedControl other;
        other.settings->values[{Section, "ItemSizeFactor"}] = one.kept;
        other.open(5, 1, 3);
        other.view->runCommand("THUMBS");
        EXPECT_EQ(other.view->thumbnails().window()->itemSizeFactor(), one.read) << one.kept;
    }
    open(3);
    for (int step = 0; step < 30; ++step)
        thumbs()->keyDown(0xBB, 0);
    EXPECT_EQ(thumbs()->itemSizeFactor(), 300);
    thumbs()->keyDown(0x6D, 0);
    EXPECT_EQ(thumbs()->itemSizeFactor(), 290);
    for (int step = 0; step < 40; ++step)
        thumbs()->smaller();
    EXPECT_EQ(thumbs()->itemSizeFactor(), 20);
}

TEST_F(WindowSettings, PlaceIsBroughtBackOntoAScreen) {
    open(3);
    const FormPosition usual = {50, 60, 420, 560};
    const std::vector<Rectangle> screens = {{0, 30, 1920, 1050}, {1920, 0, 1280, 1024}};
    EXPECT_EQ(thumbs()->LoadFormPosition(screens, usual), usual);
    EXPECT_EQ(thumbs()->LoadFormPosition(screens, {2900, 60, 420, 560}), (FormPosition{2780, 60, 420, 560}))
        << "beside a viewer at the right edge of the second screen";
    struct Case {
        FormPosition kept;
        FormPosition loaded;
    };
    const std::vector<Case> cases = {
        {{2000, 100, 300, 400}, {2000, 100, 300, 400}},  // on the other screen
        {{1900, 100, 300, 400}, {1900, 100, 300, 400}},  // on both
        {{-220, 100, 300, 400}, {-220, 100, 300, 400}},  // enough to take hold of
        {{-290, 100, 300, 400}, {0, 100, 300, 400}},     // too little
        {{5000, 5000, 300, 400}, {1620, 680, 300, 400}}, // of a screen that is gone
        {{100, -40, 300, 400}, {100, 30, 300, 400}},     // its bar above the screen
        {{100, 1075, 300, 400}, {100, 680, 300, 400}},   // its bar below
        {{5000, 100, 3000, 2000}, {0, 30, 1920, 1050}},  // larger than the screen
        {{100, 100, 20, 400}, usual},                    // too small to be used
    };
    for (const Case& one : cases) {
        thumbs()->SaveFormPosition(one.kept);
        EXPECT_EQ(thumbs()->LoadFormPosition(screens, usual), one.loaded)
            << one.kept.left << ", " << one.kept.top;
    }
    EXPECT_EQ(kept("Form.Width"), "20");
    keep("Form.Left", "far");
    EXPECT_EQ(thumbs()->LoadFormPosition(screens, usual).left, 50);
    EXPECT_EQ(thumbs()->LoadFormPosition({}, usual).left, 50);
}

} // namespace
} // namespace pixmo
