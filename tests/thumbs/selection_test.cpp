#include "core/base/virtualkeys.h"
#include "tests/thumbs/thumbsfixture.h"

namespace pixmo {
namespace {

using shift_key::Alt;
using shift_key::Ctrl;
using shift_key::Shift;

/// 40 pages in rows of 6; the last row has 4.
class Selection : public ThumbsFixture {
protected:
    Selection() { open(40); }

    int32_t focusPage() const { return thumbs()->selection().focus() + 1; }
};

TEST_F(Selection, Clicks) {
    click(10);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{10}));
    click(13, Shift);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{10, 11, 12, 13}));
    click(8, Shift);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{8, 9, 10})) << "from where the range began";
    click(9, Ctrl);
    click(20, Ctrl);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{8, 10, 20}));
    click(22, Shift);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{20, 21, 22}));
    thumbs()->click(790, 990, 0);
    EXPECT_EQ(thumbs()->selectedPages().size(), 3U) << "there is no page";
}

TEST_F(Selection, ARangeBeginsAtThePageOnScreen) {
    click(4, Shift);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{1, 2, 3, 4}));
}

TEST_F(Selection, TheMouseDrawsARubberBand) {
    click(40);
    const Rectangle first = thumbs()->grid().cell(7);
    const Rectangle last = thumbs()->grid().cell(14);
    ThumbMouse& mouse = thumbs()->mouse();
    mouse.move(first.left, first.top);
    mouse.press(mouse_button::Left, last.right() - 5, last.bottom() - 5, 0);
    mouse.move(last.right() - 8, last.bottom() - 8);
    EXPECT_FALSE(thumbs()->isBandShown()) << "a hand that shakes has clicked";
    mouse.move(last.right() - 9, last.bottom() - 5);
    EXPECT_TRUE(thumbs()->isBandShown());
    mouse.move(first.left + 5.7, first.top + 5.7);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{8, 9, 14, 15}));
    EXPECT_EQ(thumbs()->band().left, first.left + 5);
    mouse.move(last.left + 5, last.top + 5);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{15})) << "it may shrink again";
    mouse.release();
    EXPECT_FALSE(thumbs()->isBandShown());
    mouse.move(0, 0);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{15}));
    mouse.press(mouse_button::Left, first.left + 5, first.top + 5, Ctrl);
    mouse.move(first.left + 5, first.top + 9);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{8, 15})) << "beside what was selected";
    mouse.release();
    mouse.press(mouse_button::Left, 2, 2, 0);
    EXPECT_TRUE(thumbs()->isBandShown()) << "beside the pages at once";
    thumbs()->setShown(false);
    EXPECT_FALSE(thumbs()->isBandShown()) << "the window took the mouse away";
    EXPECT_TRUE(thumbs()->selectedPages().empty());
}

TEST_F(Selection, ABandBeyondTheEdgeScrolls) {
    control.thumbnailHost->area->viewHeight = 400;
    thumbs()->resized();
    const Rectangle cell = thumbs()->grid().cell(0);
    ThumbMouse& mouse = thumbs()->mouse();
    mouse.press(mouse_button::Left, cell.left + 5, cell.top + 5, 0);
    tick(1, 30);
    EXPECT_EQ(thumbs()->grid().scrollPosition(), 0) << "there is no band yet";
    struct Step {
        int32_t y;
        int32_t scrolled;
        Pages selected;
    };
    for (const Step& step :
         {Step{400, 0, {1, 7, 13}}, Step{460, 30, {1, 7, 13}}, Step{5000, 762, {1, 7, 13, 19, 25, 31, 37}},
          Step{-40, 742, {1, 7, 13, 19, 25}}}) {
        mouse.move(cell.left + 10, step.y);
        tick(1, 30);
        EXPECT_EQ(thumbs()->grid().scrollPosition(), step.scrolled) << step.y;
        EXPECT_EQ(thumbs()->selectedPages(), step.selected) << step.y;
    }
    mouse.release();
    tick(1, 30);
    EXPECT_EQ(thumbs()->grid().scrollPosition(), 742);
}

TEST_F(Selection, TheRightButtonSelectsForItsMenu) {
    ThumbMouse& mouse = thumbs()->mouse();
    const auto press = [&](int32_t page) {
        const Rectangle cell = thumbs()->grid().cell(page - 1);
        mouse.press(mouse_button::Right, cell.left + 9, cell.top + 9, Ctrl);
    };
    click(3);
    click(5, Ctrl);
    press(5);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{3, 5})) << "what is selected stays";
    press(9);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{9}));
    mouse.press(mouse_button::Right, 790, 990, 0);
    mouse.move(0, 0);
    EXPECT_EQ(thumbs()->selectedPages(), (Pages{9}));
    EXPECT_EQ(thumbs()->menuPlace(), thumbs()->grid().cell(8)) << "asked for by a key";
    control.thumbnailHost->area->viewHeight = 100;
    thumbs()->resized();
    EXPECT_EQ(thumbs()->menuPlace(), (Rectangle{0, 0, 800, 100})) << "that page is not seen";
}

TEST_F(Selection, TheWheelScrollsOrResizes) {
    control.thumbnailHost->area->viewHeight = 400;
    thumbs()->resized();
    ThumbMouse& mouse = thumbs()->mouse();
    const int32_t step = 3 * thumbs()->grid().lineStep();
    mouse.wheel(-1, 0);
    EXPECT_EQ(thumbs()->grid().scrollPosition(), step);
    for (int part = 0; part < 8; ++part)
        mouse.wheel(0.125, 0);
    EXPECT_EQ(thumbs()->grid().scrollPosition(), 0) << "no part of a notch is lost";
    mouse.wheel(-20, 0);
    EXPECT_EQ(thumbs()->grid().scrollPosition(), 400) << "no row is missed";
    mouse.wheel(0.5, Ctrl);
    EXPECT_EQ(thumbs()->itemSizeFactor(), 100);
    mouse.wheel(0.5, Ctrl);
    EXPECT_EQ(thumbs()->itemSizeFactor(), 110);
    mouse.wheel(-2, Ctrl);
    EXPECT_EQ(thumbs()->itemSizeFactor(), 90);
}

TEST_F(Selection, Keys) {
    struct Press {
        int16_t key;
        int16_t shift;
        int32_t focus;
        Pages selected;
    };
    const std::vector<Press> presses = {
        {0x27, 0, 2, {2}},        // right
        {0x28, 0, 8, {8}},        // down
        {0x26, 0, 2, {2}},        // up
        {0x26, 0, 2, {2}},        // the first row is the first
        {0x25, 0, 1, {1}},        // left
        {0x25, 0, 1, {1}},        // there is nothing before it
        {0x27, Shift, 2, {1, 2}}, //
        {0x28, Ctrl, 8, {1, 2}},  // moves the focus alone
        {0x20, 0, 8, {1, 2, 8}},  // space
        {0x20, 0, 8, {1, 2}},     //
        {0x23, 0, 40, {40}},      // end
        {0x28, 0, 40, {40}},      // the last row is the last
        {0x24, 0, 1, {1}},        // home
        {0x22, 0, 37, {37}},      // a window full of rows down: as far as there are any
        {0x21, 0, 1, {1}},        // and up
        {0x25, Alt, 1, {1}},      // not a key of this window
    };
    for (size_t i = 0; i < presses.size(); ++i) {
        const Press& press = presses[i];
        SCOPED_TRACE(i);
        EXPECT_EQ(thumbs()->keyDown(press.key, press.shift), press.shift != Alt);
        EXPECT_EQ(focusPage(), press.focus);
        EXPECT_EQ(thumbs()->selectedPages(), press.selected);
    }
    EXPECT_TRUE(thumbs()->keyDown('A', Ctrl));
    EXPECT_EQ(thumbs()->selectedPages().size(), 40U);
    EXPECT_FALSE(thumbs()->keyDown('A', 0));
    EXPECT_FALSE(thumbs()->keyDown(0x1B, 0));
}

TEST_F(Selection, DownInTheRowBeforeAShorterLastRow) {
    click(36);
    thumbs()->keyDown(0x28, 0);
    EXPECT_EQ(focusPage(), 40);
}

TEST_F(Selection, EnterAndDoubleClickJump) {
    click(9);
    EXPECT_EQ(control.view->txtPage(), "Page 1 of 40") << "one click only selects";
    thumbs()->keyDown(0x0D, 0);
    EXPECT_EQ(control.view->txtPage(), "Page 9 of 40");
    finish(9);
    EXPECT_TRUE(control.view->isPageDisplayed());
    const Rectangle cell = thumbs()->grid().cell(12);
    thumbs()->mouse().doubleClick(mouse_button::Right, cell.left + 20, cell.top + 20);
    EXPECT_EQ(control.view->txtPage(), "Page 9 of 40");
    thumbs()->mouse().doubleClick(mouse_button::Left, cell.left + 20, cell.top + 20);
    EXPECT_EQ(control.view->txtPage(), "Page 13 of 40");
    thumbs()->mouse().doubleClick(mouse_button::Left, 790, 990);
    EXPECT_EQ(control.view->txtPage(), "Page 13 of 40");
}

TEST_F(Selection, PrintsThePagesInOrder) {
    std::vector<Pages> jobs;
    control.view->thumbnails().PrintSelection.connect([&](const Pages& pages) { jobs.push_back(pages); });
    EXPECT_FALSE(thumbs()->canPrintSelection());
    thumbs()->printSelection();
    EXPECT_TRUE(jobs.empty()) << "nothing is selected";
    for (const int16_t page : {int16_t{30}, int16_t{4}, int16_t{17}})
        click(page, Ctrl);
    EXPECT_TRUE(thumbs()->canPrintSelection());
    thumbs()->keyDown('P', Ctrl);
    EXPECT_EQ(jobs, (std::vector<Pages>{{4, 17, 30}}));
    control.view->commands().setForbidden("PRINT", true);
    EXPECT_FALSE(thumbs()->canPrintSelection());
    thumbs()->printSelection();
    EXPECT_EQ(jobs.size(), 1U) << "the host does not want it";
}

TEST(EmptySelection, NoPageNoHarm) {
    scripted::ScriptedControl control;
    control.open(5, 1, 3);
    control.view->runCommand("THUMBS");
    control.view->Clear();
    const auto window = control.view->thumbnails().window()->shared_from_this();
    for (const int key : {0x25, 0x26, 0x27, 0x28, 0x21, 0x22, 0x23, 0x24, 0x0D, 0x20})
        EXPECT_TRUE(window->keyDown(static_cast<int16_t>(key), 0));
    window->selectAll();
    window->mouse().press(mouse_button::Left, 10, 10, 0);
    window->mouse().move(300, 300);
    window->mouse().release();
    window->mouse().wheel(-1, 0);
    EXPECT_EQ(window->tipAt(10, 10), "");
    EXPECT_TRUE(window->selectedPages().empty());
    EXPECT_EQ(control.view->txtPage(), "Page 0 of 0");
}

} // namespace
} // namespace pixmo
