#include "tests/behaviour/facetest.h"

#include <cstdio>

namespace pixmo::behaviour {
namespace {

class DialogTest : public FaceTest {
protected:
    void openGoto() {
        face->clickButton("PAGEGOTO");
        expectDialog("dlgGotoPage");
    }
};

TEST_F(DialogTest, GoToPageTakesDigitsOnly) {
    open(3);
    openGoto();
    EXPECT_EQ(face->dialogText("txtPageNumber"), "3");
    EXPECT_EQ(face->selectedText("txtPageNumber"), "3") << "whole and ready to be typed over";
    expectFocus("txtPageNumber");
    face->type("1");
    face->type("2a-. x3");
    EXPECT_EQ(face->dialogText("txtPageNumber"), "123");
    face->press(key::Backspace);
    face->press(key::Backspace);
    face->press(key::Enter);
    EXPECT_TRUE(waitForPage(1));
    expectNoDialog();
}

TEST_F(DialogTest, GoToPageGoesWhereItCan) {
    struct Case {
        const char* text;
        int16_t page;
    };
    open(5);
    for (const Case& each : {Case{"7", 7}, Case{"00042", 12}, Case{"3", 3}, Case{"40000", 12}, Case{"0", 12},
                             Case{"", 12}, Case{"00004", 4}, Case{"x9", 4}}) {
        SCOPED_TRACE(each.text);
        openGoto();
        face->setDialogText("txtPageNumber", each.text);
        face->pressDialogButton("OK");
        expectNoDialog();
        EXPECT_TRUE(waitForPage(each.page)) << page();
    }
}

TEST_F(DialogTest, GoToPageCanBeLeft) {
    open(5);
    for (const char* way : {"Cancel", "Escape", "frame"}) {
        SCOPED_TRACE(way);
        openGoto();
        face->type("9");
        if (way == std::string("Escape"))
            face->press(key::Escape);
        else
            face->pressDialogButton(way == std::string("frame") ? "" : way);
        expectNoDialog();
        ASSERT_TRUE(waitUntilIdle());
        EXPECT_EQ(page(), 5);
    }
}

TEST_F(DialogTest, About) {
    choose(Menu::Page, "&About\u2026");
    expectDialog("dlgAbout");
    int part[3] = {};
    char more = 0;
    EXPECT_EQ(std::sscanf(face->dialogText("lblVersion").c_str(), "Version %d.%d.%d%c", &part[0], &part[1],
                          &part[2], &more),
              3);
    EXPECT_EQ(face->dialogText("lblDescription"),
              "This internet enabled image viewer is part of the Vellane document imaging system.");
    face->press(key::Enter);
    expectNoDialog();
}

TEST_F(DialogTest, ImageInformation) {
    struct Case {
        int32_t document; ///< 0: none
        const char* text;
    };
    for (const Case& each :
         {Case{0, "No image displayed."},
          Case{sample::Deed,
               "Image Size: 8.50\" x 11.00\"\nImage pixels: 2550 x 3300\nResolution: 300 x 300 dpi\n"
               "Color Depth: 1 bit per pixel\nDocID: 1001"},
          Case{sample::Map,
               "Image Size: 13.00\" x 10.00\"\nImage pixels: 1950 x 1500\nResolution: 150 x 150 dpi\n"
               "Color Depth: 24 bits per pixel\nDocID: 1004"}}) {
        SCOPED_TRACE(each.document);
        if (each.document != 0)
            open(1, each.document);
        choose(Menu::Page, "Ima&ge Information\u2026");
        expectDialog("dlgAbout");
        EXPECT_EQ(face->dialogTitle(), "Image Information");
        EXPECT_EQ(face->dialogText("lblInformation"), each.text);
        face->pressDialogButton("OK");
        expectNoDialog();
    }
}

TEST_F(DialogTest, TheLogIsShown) {
    open(1);
    face->press('T', with::Shift);
    expectDialog("dlgLog");
    EXPECT_THAT(face->dialogText("txtLog"), testing::HasSubstr("LoadDocumentByDocID - 1001"));
    face->press(key::Escape);
    expectNoDialog();
}

TEST_F(DialogTest, PrintingIsAskedForAndLeft) {
    open(1);
    for (const char* way : {"button", "menu"}) {
        SCOPED_TRACE(way);
        if (way == std::string("button"))
            face->clickButton("PRINT");
        else
            choose(Menu::Page, "P&rint\u2026");
        expectDialog("dlgPrint");
        face->pressDialogButton("Cancel");
        expectNoDialog();
    }
    EXPECT_THAT(events({"PrintJobBegin", "PrintJobFinish"}), testing::IsEmpty());
}

} // namespace
} // namespace pixmo::behaviour
