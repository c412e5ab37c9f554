#include "core/control/viewpicture.h"
#include "faces/scripted/scriptedcontrol.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace pixmo {
namespace {

constexpr uint32_t Highlight = 0x0040FF;

class ViewPicture : public testing::Test {
protected:
    static constexpr int32_t Width = 200;
    static constexpr int32_t Height = 160;

    void SetUp() override {
        control.viewSurface->viewWidth = Width;
        control.viewSurface->viewHeight = Height;
        control.view->lvrImage().setBackground(0x406080);
        control.view->lvrImage().resize();
    }
    uint32_t at(int32_t x, int32_t y) const {
        return pixels[static_cast<size_t>(y) * Width + static_cast<size_t>(x)] & 0xFFFFFFU;
    }
    void paint(bool focused = false) {
        Palette palette;
        palette.highlight = Highlight;
        texts = paintView(*control.view, {pixels.data(), Width, Height, Width}, palette, focused,
                          [](const std::string&, bool, int32_t) {
                              return Size{80, 20};
                          });
    }
    void show() {
        control.open(5, 1, 3);
        control.reader->finish(control.tag("GP", 5, 1), scripted::ScriptedControl::pageFile());
        ASSERT_TRUE(control.view->isPageDisplayed());
    }

    scripted::ScriptedControl control;
    std::vector<TextRun> texts;
    std::vector<uint32_t> pixels = std::vector<uint32_t>(size_t{Width} * Height);
};

TEST_F(ViewPicture, IsNeverThatOfAnotherPage) {
    show();
    paint();
    const auto page = pixels;
    EXPECT_NE(at(Width / 2, Height / 2), 0x406080U);
    control.view->setProperty("Page", int16_t{2});
    ASSERT_TRUE(control.view->isPageAwaited());
    paint();
    EXPECT_NE(pixels, page) << "veiled while the next one is awaited";
    EXPECT_NE(at(Width / 2, Height / 2), 0x406080U);
    control.reader->fail(control.tag("GP", 5, 2), "gone");
    ASSERT_FALSE(control.view->viewNotice().empty());
    paint();
    EXPECT_EQ(std::ranges::count(pixels, 0xFF406080U), Width * Height - 104 * 44)
        << "gone when it cannot be had, but for the plate of the notice";
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts.front().text, control.view->viewNotice());
    EXPECT_EQ(texts.front().place, (Rectangle{60, 70, 80, 20}));
}

TEST_F(ViewPicture, HasTheBandAndTheFrameOfTheFocus) {
    show();
    paint();
    const auto plain = pixels;
    paint(true);
    EXPECT_EQ(at(0, 0), Highlight);
    EXPECT_EQ(at(Width - 1, Height - 1), Highlight);
    EXPECT_EQ(at(1, 1), plain[Width + 1] & 0xFFFFFFU);
    RasterView& view = control.view->lvrImage();
    view.rubberBandActive = true;
    view.rubberBand = {20, 30, 50, 40};
    paint();
    EXPECT_EQ(at(20, 30), Highlight);
    EXPECT_EQ(at(70, 70), Highlight);
    EXPECT_NE(at(40, 50), plain[size_t{50} * Width + 40] & 0xFFFFFFU) << "tinted";
    EXPECT_EQ(at(75, 50), plain[size_t{50} * Width + 75] & 0xFFFFFFU);
    control.viewSurface->ratio = 2;
    paint(true);
    EXPECT_EQ(at(1, 1), Highlight) << "as wide as elsewhere";
}

} // namespace
} // namespace pixmo
