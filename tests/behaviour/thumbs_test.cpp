#include "tests/behaviour/facetest.h"

#include <algorithm>
#include <numeric>

namespace pixmo::behaviour {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::SizeIs;

/// The window of the thumbnails, to which all calls about page, toolbar and menus turn while it is open.
class ThumbsTest : public FaceTest {
protected:
    void openThumbs(int16_t page = 1) {
        face->set("ThumbsAvailable", true);
        open(page);
        showThumbs();
    }
    void showThumbs() {
        face->clickButton("THUMBS");
        expectDialog("dlgThumbs");
        face->turnTo(Window::Thumbnails);
    }
    void closeThumbs() {
        face->press(key::Escape);
        face->turnTo(Window::Control);
        expectNoDialog();
    }
    void TearDown() override {
        closeThumbs();
        FaceTest::TearDown();
    }

    ShownThumb thumb(int page) { return face->thumbs().at(static_cast<size_t>(page - 1)); }
    std::vector<int> selected() {
        std::vector<int> pages;
        int page = 0;
        for (const ShownThumb& each : face->thumbs()) {
            ++page;
            if (each.selected)
                pages.push_back(page);
        }
        return pages;
    }
    static std::vector<int> all() {
        std::vector<int> pages(sample::DeedPages);
        std::iota(pages.begin(), pages.end(), 1);
        return pages;
    }
    void click(int page, int modifiers = with::Nothing) {
        const ShownThumb place = thumb(page);
        face->hold(modifiers);
        face->click(place.left + place.width / 2, place.top + place.height / 2);
        face->hold(with::Nothing);
    }
    /// Pixels inside of the page's cell that are neither paper nor the outline of a page not yet seen.
    int inkOf(int page) {
        const ShownThumb place = thumb(page);
        const Picture shown = face->picture();
        int ink = 0;
        for (int32_t y = place.top + 12; y < std::min(place.top + place.height - 30, shown.height); ++y)
            for (int32_t x = place.left + 20; x < place.left + place.width - 20; ++x)
                ink += (shown.at(x, y) & 0xFF) < 0xC0 ? 1 : 0;
        return ink;
    }
    bool waitForInk(int page) {
        return waitFor([&] { return inkOf(page) > 100; });
    }
};

TEST_F(ThumbsTest, ShowThePagesAndFollowTheReader) {
    const int before = face->requests("GP");
    ASSERT_NO_FATAL_FAILURE(openThumbs(3));
    EXPECT_EQ(face->dialogTitle(), "Thumbnails \u2013 Document 1001");
    ASSERT_THAT(face->thumbs(), SizeIs(sample::DeedPages));
    for (const int page : {1, 2, 3, 5})
        EXPECT_TRUE(waitForInk(page)) << page;
    ASSERT_TRUE(waitUntilIdle());
    EXPECT_LE(face->requests("GP") - before, sample::DeedPages) << "no page twice";
    EXPECT_EQ(thumb(4).name, "Page 4");
    EXPECT_EQ(thumb(4).description, "");
    EXPECT_EQ(thumb(3).description, "Shown in the viewer");
    face->doubleClick(thumb(2).left + 30, thumb(2).top + 30);
    ASSERT_TRUE(waitForPage(2));
    EXPECT_EQ(thumb(2).description, "Shown in the viewer");
    face->call("Clear");
    EXPECT_EQ(face->dialogTitle(), "Thumbnails");
    EXPECT_THAT(face->thumbs(), SizeIs(0));
    const Picture empty = face->picture();
    EXPECT_LT(std::ranges::count(empty.pixels, empty.at(0, 0)), std::ssize(empty.pixels) - 100) << "a notice";
    face->load(sample::Fax, 1);
    ASSERT_TRUE(waitForPage(1));
    EXPECT_THAT(face->thumbs(), SizeIs(sample::FaxPages));
    EXPECT_THAT(face->dialogTitle(), EndsWith("1002"));
}

TEST_F(ThumbsTest, MouseAndKeysSelect) {
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    ASSERT_TRUE(waitForInk(5));
    click(2);
    click(4, with::Shift);
    click(1, with::Ctrl);
    EXPECT_THAT(selected(), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(page(), 1) << "one click only selects";
    face->press(key::Home);
    face->press(key::Right);
    EXPECT_THAT(selected(), ElementsAre(2));
    EXPECT_TRUE(thumb(2).focused);
    face->press(key::Right, with::Shift);
    EXPECT_THAT(selected(), ElementsAre(2, 3));
    face->press(key::Enter);
    EXPECT_TRUE(waitForPage(3));
    face->press('A', with::Ctrl);
    EXPECT_EQ(selected(), all());
    const ShownThumb second = thumb(2);
    face->drag(thumb(1).left + 3, second.top + 3, second.left + 40, second.top + 60);
    EXPECT_THAT(selected(), ElementsAre(1, 2));
    const Picture banded = face->picture();
    face->release();
    EXPECT_THAT(selected(), ElementsAre(1, 2));
    EXPECT_NE(face->picture(), banded) << "the band was seen";
}

TEST_F(ThumbsTest, TheWheelScrollsAndResizes) {
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    const int32_t width = thumb(1).width;
    face->wheel(100, 100, 3, with::Ctrl);
    EXPECT_EQ(thumb(1).width, width + 30);
    face->wheel(100, 100, -1, with::Ctrl);
    EXPECT_EQ(thumb(1).width, width + 20);
    const int32_t top = thumb(1).top;
    face->wheel(100, 100, -1);
    EXPECT_GT(face->scroll(false).position, 0);
    EXPECT_EQ(thumb(1).top, top - face->scroll(false).position);
    face->press(key::End);
    EXPECT_EQ(face->scroll(false).position, face->scroll(false).maximum);
    EXPECT_TRUE(waitForInk(sample::DeedPages));
}

TEST_F(ThumbsTest, ToolbarMenusAndWhatIsKept) {
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    for (const char* key : {"LARGER", "SMALLER", "PRINT", "SELECTALL"}) {
        const ShownButton shown = button(key);
        EXPECT_FALSE(shown.tip.empty()) << key;
        EXPECT_EQ(shown.caption, "") << key;
        EXPECT_EQ(shown.imageSize, 32) << key;
    }
    const int32_t width = thumb(1).width;
    face->clickButton("LARGER");
    EXPECT_EQ(thumb(1).width, width + 10);
    EXPECT_THAT(enabledButtons(), ElementsAre("LARGER", "SMALLER", "SELECTALL")) << "nothing is selected";
    face->clickButton("SELECTALL");
    EXPECT_EQ(selected(), all());
    EXPECT_TRUE(button("PRINT").enabled);
    choose(Menu::Toolbar, "&Large Buttons");
    choose(Menu::Toolbar, "Button &Captions");
    EXPECT_EQ(button("LARGER").imageSize, 16);
    EXPECT_EQ(button("LARGER").caption, "Larger");
    EXPECT_EQ(openMenu(Menu::Page).back().text, "&Toolbar");
    face->choose("&Toolbar");
    EXPECT_TRUE(waitFor([this] { return !button("LARGER").visible; }));
    face->resize(500, 400);
    ASSERT_TRUE(waitFor([this] { return face->picture().width > 470; }));
    const int32_t kept = face->picture().width;
    const auto place = face->dialogPlace();
    closeThumbs();
    face->destroy();
    createControl();
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    EXPECT_FALSE(button("LARGER").visible);
    EXPECT_EQ(thumb(1).width, width + 10);
    EXPECT_EQ(face->picture().width, kept);
    EXPECT_EQ(face->dialogPlace(), place);
}

TEST_F(ThumbsTest, AFailedPageSaysWhyAndTriesAgain) {
    face->set("ThumbsAvailable", true);
    open();
    face->setFaults("http:GP=503");
    showThumbs();
    ASSERT_TRUE(waitFor([this] { return !thumb(3).description.empty(); }));
    EXPECT_THAT(thumb(3).description, HasSubstr("503"));
    EXPECT_THAT(thumb(3).description, EndsWith("Click to try again."));
    EXPECT_TRUE(face->isPageDisplayed());
    ASSERT_TRUE(waitUntilIdle());
    face->setFaults("");
    click(3);
    EXPECT_TRUE(waitForInk(3));
    EXPECT_EQ(thumb(3).description, "");
}

} // namespace
} // namespace pixmo::behaviour
