#include "tests/behaviour/facetest.h"

#include <array>

namespace pixmo::behaviour {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ButtonRow {
    const char* key;
    const char* caption;
    const char* tip;
    char style; ///< ' ' plain, 'g' one of a group, '-' separator
};

constexpr auto AllButtons = std::to_array<ButtonRow>({
    {"THUMBS", "Thumbs", "View thumbnails", ' '},
    {"sep0", "", "", '-'},
    {"PRINT", "Print", "Print document", ' '},
    {"QUICKPRINT", "Quick Print", "Print current page", ' '},
    {"CANCEL", "Cancel", "Cancel transfer", ' '},
    {"sep1", "", "", '-'},
    {"PAN", "Pan", "Pan image", 'g'},
    {"SELECTION", "Zoom", "Zoom to selection", 'g'},
    {"sep2", "", "", '-'},
    {"ROTL", "Rotate", "Rotate left", ' '},
    {"ROTR", "Rotate", "Rotate right", ' '},
    {"sep3", "", "", '-'},
    {"PAGEPREV", "Prev", "Previous page", ' '},
    {"PAGENEXT", "Next", "Next page", ' '},
    {"PAGEGOTO", "Goto", "Goto page", ' '},
    {"sep4", "", "", '-'},
    {"FITHEIGHT", "Fit Height", "Fit height", ' '},
    {"FITWIDTH", "Fit Width", "Fit width", ' '},
    {"sep5", "", "", '-'},
    {"STAR", "Bookmark", "Bookmark Page", ' '},
});

class ToolbarTest : public FaceTest {
protected:
    void expectRows(bool thumbs, bool bookmark, bool captions) {
        const auto shown = face->toolbar();
        auto button = shown.begin();
        for (const ButtonRow& row : AllButtons) {
            const std::string key = row.key;
            if ((!thumbs && (key == "THUMBS" || key == "sep0")) ||
                (!bookmark && (key == "STAR" || key == "sep5")))
                continue;
            SCOPED_TRACE(key);
            ASSERT_NE(button, shown.end());
            EXPECT_EQ(button->key, key);
            EXPECT_EQ(button->separator, row.style == '-');
            EXPECT_EQ(button->group, row.style == 'g');
            EXPECT_EQ(button->tip, row.tip);
            EXPECT_EQ(button->caption, captions ? row.caption : "");
            EXPECT_TRUE(button->visible);
            EXPECT_EQ(button->imageSize > 0, row.style != '-');
            ++button;
        }
        EXPECT_EQ(button, shown.end());
    }
};

TEST_F(ToolbarTest, IsTheTableOfButtons) {
    expectRows(false, false, false);
    EXPECT_EQ(face->toolbar().size(), AllButtons.size() - 4);
    face->set("ThumbsAvailable", true);
    expectRows(true, false, false);
    face->set("BookmarkAvailable", true);
    choose(Menu::Toolbar, "Button &Captions");
    expectRows(true, true, true);
    face->set("ThumbsAvailable", false);
    face->set("BookmarkAvailable", false);
    expectRows(false, false, true);
}

TEST_F(ToolbarTest, ButtonsAreEnabledByWhatCanBeDone) {
    face->set("BookmarkAvailable", true);
    face->set("ThumbsAvailable", true);
    EXPECT_THAT(enabledButtons(), IsEmpty()) << "no document";

    face->setFaults("stall:GP");
    face->load(sample::Deed, 1);
    ASSERT_TRUE(
        waitFor([this] { return number("PageCount") == sample::DeedPages && button("CANCEL").enabled; }));
    EXPECT_THAT(enabledButtons(), ElementsAre("THUMBS", "CANCEL", "PAGENEXT", "PAGEGOTO")) << "no page yet";
    EXPECT_EQ(face->pointer(), 13);
    face->clickButton("CANCEL");
    ASSERT_TRUE(waitUntilIdle());
    EXPECT_FALSE(button("CANCEL").enabled);
    EXPECT_EQ(face->pointer(), 0);

    face->setFaults("");
    const std::vector<std::string> withPage = {"THUMBS", "PRINT", "QUICKPRINT", "PAN",      "SELECTION",
                                               "ROTL",   "ROTR",  "FITHEIGHT",  "FITWIDTH", "STAR"};
    struct Case {
        int32_t document;
        int16_t page;
        std::vector<std::string> more;
    };
    for (const Case& each :
         {Case{sample::Deed, 1, {"PAGENEXT", "PAGEGOTO"}},
          Case{sample::Deed, 5, {"PAGEPREV", "PAGENEXT", "PAGEGOTO"}},
          Case{sample::Deed, sample::DeedPages, {"PAGEPREV", "PAGEGOTO"}}, Case{sample::Map, 1, {}}}) {
        SCOPED_TRACE(std::to_string(each.document) + " page " + std::to_string(each.page));
        open(each.page, each.document);
        auto expected = withPage;
        expected.insert(expected.end(), each.more.begin(), each.more.end());
        EXPECT_THAT(enabledButtons(), testing::UnorderedElementsAreArray(expected));
    }
    face->call("Clear");
    EXPECT_THAT(enabledButtons(), IsEmpty());
}

TEST_F(ToolbarTest, ADisabledButtonDoesNothing) {
    open(sample::DeedPages);
    face->clickButton("PAGENEXT");
    face->clickButton("CANCEL");
    EXPECT_EQ(page(), sample::DeedPages);
    EXPECT_TRUE(face->isIdle());
    face->call("Clear");
    const Picture empty = face->picture();
    for (const char* key : {"ROTL", "ROTR", "FITHEIGHT", "FITWIDTH", "PRINT", "PAGEGOTO"})
        face->clickButton(key);
    EXPECT_EQ(face->dialog(), "");
    EXPECT_EQ(face->picture(), empty);
}

TEST_F(ToolbarTest, ButtonsTurnPages) {
    open(1);
    face->clickButton("PAGENEXT");
    EXPECT_TRUE(waitForPage(2));
    face->clickButton("PAGENEXT");
    EXPECT_TRUE(waitForPage(3));
    face->clickButton("PAGEPREV");
    EXPECT_TRUE(waitForPage(2));
    EXPECT_EQ(face->readOut(), "Page 2 of 12");
    expectFocus("lvrImage"); // a button does not keep the keyboard
}

TEST_F(ToolbarTest, OneOfTheGroupIsPressed) {
    open(1);
    const auto pressed = [this] {
        std::string keys;
        for (const ShownButton& shown : face->toolbar())
            keys += shown.pressed ? shown.key + " " : "";
        return keys;
    };
    EXPECT_EQ(pressed(), "PAN ");
    face->clickButton("SELECTION");
    EXPECT_EQ(pressed(), "SELECTION ");
    face->clickButton("SELECTION");
    EXPECT_EQ(pressed(), "SELECTION ") << "stays pressed";
    face->set("BookmarkAvailable", true);
    EXPECT_EQ(pressed(), "SELECTION ") << "outlives a new toolbar";
    face->clickButton("PAN");
    EXPECT_EQ(pressed(), "PAN ");
}

TEST_F(ToolbarTest, TheBookmarkButtonTellsTheHost) {
    face->set("BookmarkAvailable", true);
    open(4);
    face->takeEvents();
    face->clickButton("STAR");
    EXPECT_THAT(events({"BookmarkRequested"}), ElementsAre("BookmarkRequested 1001 4"));
}

TEST_F(ToolbarTest, TheThumbnailsButtonOpensTheirWindow) {
    face->set("ThumbsAvailable", true);
    open(1);
    face->clickButton("THUMBS");
    expectDialog("dlgThumbs");
    EXPECT_THAT(face->dialogTitle(), testing::HasSubstr("1001"));
    face->press(key::End);
    face->press(key::Enter);
    ASSERT_TRUE(waitForPage(sample::DeedPages)) << "it is not modal";
    face->pressDialogButton("");
    expectNoDialog();
}

} // namespace
} // namespace pixmo::behaviour
