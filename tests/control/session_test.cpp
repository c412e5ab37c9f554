#include "faces/scripted/scriptedcontrol.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo {
namespace {

using scripted::ScriptedControl;

TEST(Session, ShowsThePageThatWasAskedFor) {
    ScriptedControl control;
    std::vector<std::pair<int32_t, int32_t>> pages;
    control.view->events().PageChanged.connect([&](int32_t doc, int32_t page) { pages.emplace_back(doc, page); });
    control.open(5, -3, 12);
    EXPECT_EQ(control.view->viewNotice(), "Loading page 3\u2026");
    control.reader->finish(control.tag("GP", 5, 3), ScriptedControl::pageFile());
    EXPECT_TRUE(control.view->isPageDisplayed());
    EXPECT_EQ(control.view->txtPage(), "Page 3 of 12");
    EXPECT_TRUE(control.messageBox->questions.empty());
    EXPECT_EQ(pages, (std::vector<std::pair<int32_t, int32_t>>{{0, 0}, {5, 3}}));
}

} // namespace
} // namespace pixmo
