#include "tests/thumbs/thumbsfixture.h"

#include <set>

namespace pixmo {
namespace {

using Loading = ThumbsFixture;

TEST_F(Loading, NearestToTheMiddleFirstAndThreeAtATime) {
    open(500);
    EXPECT_TRUE(control.thumbnailHost->isShown);
    tick(20);
    EXPECT_EQ(requests(1), (Pages{22, 21, 23}));
    finish(22);
    tick(20);
    EXPECT_EQ(requests(1), (Pages{22, 21, 23, 20}));
    // What is seen comes before the row beyond.
    loadAll();
    const Pages pages = requests(1);
    ASSERT_EQ(pages.size(), 47U);
    EXPECT_TRUE(std::all_of(pages.begin(), pages.begin() + 41, [](int16_t page) { return page <= 42; }));
    EXPECT_TRUE(std::all_of(pages.begin() + 41, pages.end(), [](int16_t page) { return page > 42; }));
    EXPECT_EQ(std::set<int16_t>(pages.begin(), pages.end()).size(), pages.size());
    EXPECT_EQ(thumbs()->state(1), ThumbState::Shown) << "the page of the view, which was not fetched again";
}

TEST_F(Loading, WhatScrolledOutOfSightIsNotFetched) {
    open(500);
    tick(3);
    thumbs()->scrollTo(thumbs()->grid().scrollMaximum());
    loadAll();
    for (const int16_t page : requests(4))
        EXPECT_GT(page, 500 - 50);
    EXPECT_EQ(thumbs()->state(22), ThumbState::Shown) << "it was under way";
    EXPECT_EQ(thumbs()->state(20), ThumbState::Empty);
    EXPECT_EQ(thumbs()->state(500), ThumbState::Shown);
}

TEST_F(Loading, NeverWhileTheReaderWaits) {
    open(500);
    loadAll();
    thumbs()->scrollTo(thumbs()->grid().scrollMaximum());
    const size_t before = requests().size();
    control.view->runCommand("PAGENEXT");
    EXPECT_TRUE(control.view->isPageDisplayed()) << "page 2 is there";
    control.view->setProperty("Page", int16_t{300});
    tick(20);
    EXPECT_EQ(requests(before), (Pages{300}));
    finish(300);
    tick(20);
    EXPECT_EQ(requests(before).size(), 4U);
}

TEST_F(Loading, NothingWhileTheWindowIsNotSeen) {
    open(500);
    thumbs()->setShown(false);
    EXPECT_FALSE(isLoading());
    thumbs()->scrollTo(2000);
    thumbs()->retry(3);
    EXPECT_FALSE(isLoading());
    thumbs()->setShown(true);
    loadAll();
    EXPECT_GT(requests(1).size(), 40U);
}

TEST_F(Loading, APageOfTheThumbnailsServesTheViewToo) {
    open(500);
    loadAll();
    const size_t before = requests().size();
    control.view->setProperty("Page", int16_t{30});
    EXPECT_TRUE(control.view->isPageDisplayed());
    EXPECT_EQ(control.view->txtPage(), "Page 30 of 500");
    EXPECT_EQ(requests().size(), before);
}

TEST_F(Loading, ViewAndThumbnailsWantTheSamePage) {
    open(500);
    tick(3);
    ASSERT_TRUE(isRequested(22));
    // The thumbnail was first: the view takes the page over.
    control.view->setProperty("Page", int16_t{22});
    finish(22);
    EXPECT_TRUE(control.view->isPageDisplayed());
    // The view was first, and has gone elsewhere since.
    control.view->setProperty("Page", int16_t{40});
    control.view->setProperty("Page", int16_t{1});
    tick(20);
    EXPECT_TRUE(isRequested(40));
    finish(40);
    EXPECT_EQ(control.view->txtPage(), "Page 1 of 500");
    loadAll();
    const Pages pages = requests();
    for (const int16_t page : {int16_t{22}, int16_t{40}}) {
        EXPECT_EQ(std::count(pages.begin(), pages.end(), page), 1) << page;
        EXPECT_EQ(thumbs()->state(page), ThumbState::Shown) << page;
    }
}

TEST_F(Loading, APageThatTheViewLacksComesToTheViewToo) {
    open(500);
    tick(1);
    control.view->setProperty("Page", int16_t{30});
    fail(30, "Connection refused");
    EXPECT_FALSE(control.view->isPageDisplayed());
    for (int round = 0; round < 200 && !isRequested(30); ++round) {
        tick();
        for (const int16_t page : requests())
            if (page != 30 && isRequested(page))
                finish(page);
    }
    finish(30);
    EXPECT_TRUE(control.view->isPageDisplayed());
    loadAll();
    EXPECT_EQ(thumbs()->state(30), ThumbState::Shown);
}

TEST_F(Loading, EveryFailureIsTheThumbnailsOwn) {
    open(500);
    tick(3);
    fail(22, "Connection refused");
    finish(21, "Error: page is locked");
    finish(23, "no picture" + std::string(5000, '.'));
    tick(1);
    EXPECT_EQ(thumbs()->reason(22), "Connection refused");
    EXPECT_EQ(thumbs()->reason(21), "Error: page is locked");
    const std::string tip = "Page 23: Invalid picture\r\nClick to try again.";
    const Rectangle cell = thumbs()->grid().cell(22);
    EXPECT_EQ(thumbs()->tipAt(cell.left, cell.top), tip);
    EXPECT_EQ(thumbs()->description(23), tip);
    EXPECT_EQ(thumbs()->description(1), "Shown in the viewer");
    EXPECT_EQ(thumbs()->tipAt(cell.right() + 0.5, cell.top), "Page 24");
    for (const int16_t page : {int16_t{21}, int16_t{22}, int16_t{23}})
        EXPECT_EQ(thumbs()->state(page), ThumbState::Failed) << page;
    EXPECT_TRUE(control.view->isPageDisplayed());
    EXPECT_TRUE(control.messageBox->questions.empty());
    loadAll();
    const size_t before = requests().size();
    EXPECT_EQ(before, 48U) << "none was tried again by itself";
    click(22);
    click(21, 2);
    tick(20);
    EXPECT_EQ(requests(before), (Pages{22}));
    loadAll();
    EXPECT_EQ(thumbs()->state(22), ThumbState::Shown);
    // The view gets the other one.
    control.view->setProperty("Page", int16_t{21});
    finish(21);
    loadAll();
    EXPECT_EQ(thumbs()->state(21), ThumbState::Shown);
}

TEST_F(Loading, CancelledThumbnailsFail) {
    open(500);
    tick(3);
    control.view->runCommand("CANCEL");
    tick(1);
    EXPECT_EQ(thumbs()->state(22), ThumbState::Failed);
    EXPECT_FALSE(thumbs()->reason(22).empty());
}

TEST_F(Loading, ManyPagesCostNothingUntilLookedAt) {
    for (const int16_t count : {int16_t{2000}, int16_t{32000}}) {
        scripted::ScriptedControl other;
        other.open(Document, 1, count);
        other.reader->finish(other.tag("GP", Document, 1), other.pageFile());
        const size_t before = other.reader->requests.size();
        other.view->runCommand("THUMBS");
        dlgThumbs& window = *other.view->thumbnails().window();
        EXPECT_EQ(window.grid().itemCount(), count);
        EXPECT_EQ(window.pixelCount(), 0U);
        EXPECT_EQ(other.reader->requests.size(), before);
        window.keyDown(0x23, 0);
        EXPECT_EQ(window.grid().visible().end, count);
    }
}

TEST_F(Loading, PicturesStayUntilThoseOfTheNewSizeCome) {
    open(30);
    loadAll();
    const size_t before = requests().size();
    const Size size = thumbs()->picture(3)->size;
    EXPECT_EQ(size, (Size{65, 130})) << "a page of 100 x 200";
    thumbs()->larger();
    ASSERT_NE(thumbs()->picture(3), nullptr);
    EXPECT_EQ(thumbs()->picture(3)->size, size);
    loadAll();
    EXPECT_EQ(thumbs()->picture(3)->size, (Size{72, 143}));
    EXPECT_EQ(requests().size(), before) << "all of them were cached";
    // A screen of twice the resolution.
    control.thumbnailHost->area->ratio = 2;
    control.thumbnailHost->area->viewWidth *= 2;
    control.thumbnailHost->area->viewHeight *= 2;
    thumbs()->resized();
    loadAll();
    EXPECT_EQ(thumbs()->picture(3)->size, (Size{143, 286}));
}

TEST_F(Loading, FollowsTheReader) {
    open(500, 300);
    const auto isSeen = [&](int16_t page) {
        const Rectangle cell = thumbs()->grid().cell(page - 1);
        return cell.top >= 0 && cell.bottom() <= 1000;
    };
    EXPECT_TRUE(isSeen(300));
    EXPECT_EQ(thumbs()->selection().focus(), 299);
    control.view->runCommand("PAGEFIRST");
    EXPECT_EQ(thumbs()->currentPage(), 1);
    EXPECT_TRUE(isSeen(1));
}

TEST_F(Loading, AnotherDocumentBeginsAnew) {
    open(40);
    tick(3);
    thumbs()->selectAll();
    EXPECT_EQ(thumbs()->Caption(), "Thumbnails \u2013 Document 5");
    const std::string oldTag = control.tag("GP", Document, 22);
    control.view->Clear();
    EXPECT_EQ(thumbs()->grid().itemCount(), 0);
    EXPECT_EQ(thumbs()->Caption(), "Thumbnails");
    EXPECT_EQ(thumbs()->notice(), "No document is loaded.");
    EXPECT_FALSE(isLoading());
    control.view->LoadDocumentByDocID(6, 1);
    EXPECT_NE(thumbs()->notice(), "");
    // An answer of the former document comes late.
    control.reader->finish(oldTag, scripted::ScriptedControl::pageFile());
    control.reader->finish(control.tag("PC", 6), control.encipher("PC\u00B7OK\u00B740"));
    EXPECT_EQ(thumbs()->grid().itemCount(), 40);
    EXPECT_EQ(thumbs()->notice(), "");
    EXPECT_TRUE(thumbs()->selectedPages().empty());
    EXPECT_EQ(thumbs()->pixelCount(), 0U);
    EXPECT_TRUE(isLoading());
}

TEST_F(Loading, EndsWithTheViewer) {
    open(40);
    tick(3);
    const std::weak_ptr<dlgThumbs> window = thumbs();
    control.destroy();
    EXPECT_FALSE(control.thumbnailHost->isShown);
    EXPECT_TRUE(window.expired());
    EXPECT_TRUE(control.timers->alive.empty());
}

// The host closes the viewer when it hears of the page.
TEST_F(Loading, TheWindowOutlivesTheCallThatEndsIt) {
    open(40);
    loadAll();
    control.view->events().PageChanged.connect([this](int32_t, int16_t page) {
        if (page == 7)
            control.destroy();
    });
    const auto held = thumbs();
    click(7);
    EXPECT_TRUE(held->keyDown(0x0D, 0));
    EXPECT_EQ(control.view, nullptr);
}

} // namespace
} // namespace pixmo
