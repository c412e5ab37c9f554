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
        face->pressDialogButton("Copy");
        EXPECT_TRUE(waitFor([&] { return face->clipboardText() == each.text; })) << face->clipboardText();
        expectDialog("dlgAbout");
        face->pressDialogButton("OK");
        expectNoDialog();
    }
}

TEST_F(DialogTest, TheLogIsShownAndSearched) {
    open(1);
    face->press('T', with::Shift);
    expectDialog("dlgLog");
    EXPECT_THAT(face->dialogText("txtLog"), testing::HasSubstr("LoadDocumentByDocID - 1001"));
    EXPECT_EQ(face->focus(), "txtFind");
    face->type("loaddocumentBYdocid - ");
    face->press(key::Enter);
    EXPECT_TRUE(waitFor([&] { return face->selectedText("txtLog") == "LoadDocumentByDocID - "; }))
        << face->selectedText("txtLog");
    face->pressDialogButton("Copy");
    EXPECT_TRUE(waitFor([&] { return face->clipboardText() == "LoadDocumentByDocID - "; }));
    face->press('F', with::Ctrl);
    EXPECT_EQ(face->focus(), "txtFind");
    EXPECT_EQ(face->selectedText("txtFind"), "loaddocumentBYdocid - ");
    face->type("zzz");
    face->press(key::F3, with::Shift);
    EXPECT_TRUE(waitFor([&] { return face->dialogText("lblFound") == "Not found"; }));
    face->resizeDialog(700, 420);
    face->press(key::Escape);
    expectNoDialog();
    face->press('T', with::Shift);
    expectDialog("dlgLog");
    EXPECT_EQ(face->dialogSize(), std::pair(700, 420));
    face->pressDialogButton("Close");
    expectNoDialog();
}

class PrintDialogTest : public DialogTest {
protected:
    void openPrint(bool withOptions = true) {
        face->clickButton("PRINT");
        expectDialog("dlgPrint");
        if (!withOptions || face->dialogField("All Pages").visible)
            return;
        // They are remembered: the window opens with them and is not enlarged while its fields are clicked.
        face->pressDialogButton("More Options");
        EXPECT_TRUE(waitFor([&] { return face->dialogField("All Pages").visible; }));
        face->press(key::Escape);
        expectNoDialog();
        openPrint();
    }
    bool becomesChosen(const char* option) {
        return waitFor([&] { return face->dialogField(option).chosen; });
    }
};

TEST_F(PrintDialogTest, IsAskedForAndLeft) {
    open(1);
    for (const char* way : {"Cancel", "Escape", "frame"}) {
        SCOPED_TRACE(way);
        choose(Menu::Page, "P&rint\u2026");
        expectDialog("dlgPrint");
        EXPECT_EQ(face->dialogTitle(), "Print Document");
        if (way == std::string("Escape"))
            face->press(key::Escape);
        else
            face->pressDialogButton(way == std::string("frame") ? "" : way);
        expectNoDialog();
    }
    EXPECT_THAT(events({"PrintJobBegin", "PrintJobFinish"}), testing::IsEmpty());
}

TEST_F(PrintDialogTest, MoreOptionsEnlargeItAndAreRemembered) {
    open(1);
    openPrint(false);
    const auto small = face->dialogSize();
    for (const char* field : {"All Pages", "txtFromPage", "txtPrntCopies", "Fit to Page"})
        EXPECT_FALSE(face->dialogField(field).visible) << field;
    face->pressDialogButton("More Options");
    EXPECT_TRUE(waitFor([&] { return face->dialogSize().second > small.second + 80; }));
    for (const char* field :
         {"All Pages", "Current Page", "Selected Pages", "Page", "txtFromPage", "txtToPage", "txtPrntCopies",
          "Fit to Page", "Print Full Size (100%)", "Print Current View Only"})
        EXPECT_TRUE(face->dialogField(field).visible) << field;
    EXPECT_FALSE(face->dialogField("lstSelectedPages").visible) << "only with the selected pages";
    face->press(key::Escape);
    expectNoDialog();
    openPrint(false);
    EXPECT_TRUE(face->dialogField("All Pages").visible);
    face->pressDialogButton("Less Options");
    EXPECT_TRUE(waitFor([&] { return face->dialogSize() == small; }));
    face->press(key::Escape);
}

TEST_F(PrintDialogTest, GivesThePagesThatAreChosen) {
    HostAnswers answers;
    answers.cancelsPrinting = true;
    face->answerEvents(answers);
    open(2);
    struct Case {
        std::function<void()> deeds;
        const char* begins;
    };
    const auto typeInto = [&](const char* field, const char* text) {
        face->clickDialogField(field);
        face->type(text);
        EXPECT_TRUE(waitFor([&] { return face->dialogText(field) == text; }));
    };
    const Case cases[] = {
        {[] {}, "PrintJobBegin 1 1001"},
        {[&] { face->pressDialogButton("All Pages"); }, "PrintJobBegin 12 1001"},
        {[&] {
             typeInto("txtFromPage", "4");
             typeInto("txtToPage", "2");
             EXPECT_TRUE(becomesChosen("Page")) << "who types a page means the range";
         },
         "PrintJobBegin 3 1001"},
        {[&] {
             face->pressDialogButton("Selected Pages");
             EXPECT_TRUE(waitFor([&] { return face->dialogField("lstSelectedPages").visible; }));
             face->clickDialogField("lstSelectedPages");
             face->press(key::Home);
             face->press(key::Down, with::Shift);
         },
         "PrintJobBegin 2 1001"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.begins);
        openPrint();
        each.deeds();
        face->pressDialogButton("Print");
        expectNoDialog();
        std::vector<std::string> begun;
        EXPECT_TRUE(waitFor([&] { return !(begun = events({"PrintJobBegin"})).empty(); }));
        EXPECT_THAT(begun, testing::ElementsAre(each.begins));
        ASSERT_TRUE(waitUntilIdle());
    }
}

TEST_F(PrintDialogTest, TheCurrentViewAsksForTheCurrentPage) {
    open(2);
    openPrint();
    EXPECT_TRUE(becomesChosen("Current Page"));
    face->pressDialogButton("All Pages");
    face->pressDialogButton("Print Current View Only");
    expectBox("will automatically select the 'Current Page' range.", "Cancel");
    EXPECT_TRUE(becomesChosen("Fit to Page"));
    EXPECT_TRUE(becomesChosen("All Pages"));
    face->pressDialogButton("Print Current View Only");
    expectBox("will automatically select the 'Current Page' range.", "OK");
    EXPECT_TRUE(becomesChosen("Print Current View Only"));
    EXPECT_TRUE(becomesChosen("Current Page"));
    face->press(key::Escape);
}

TEST_F(PrintDialogTest, ThePreviewFetchesAndTurnsItsSheets) {
    open(2);
    openPrint();
    const int before = face->requests("GP");
    face->pressDialogButton("All Pages");
    face->pressDialogButton("Preview...");
    expectDialog("dlgPreview");
    const auto shows = [&](const char* text) {
        return waitFor([&] { return face->dialogText("sheetText") == text; });
    };
    EXPECT_TRUE(shows("Sheet 1 of 12"));
    EXPECT_TRUE(waitFor([&] { return face->requests("GP") == before + 1; })) << "the first sheet's page";
    EXPECT_FALSE(face->dialogField("Previous").enabled);
    face->press(key::PageDown);
    EXPECT_TRUE(shows("Sheet 2 of 12"));
    face->press(key::End);
    EXPECT_TRUE(shows("Sheet 12 of 12"));
    EXPECT_TRUE(waitFor([&] { return face->requests("GP") == before + 2; }));
    EXPECT_FALSE(face->dialogField("Next").enabled);
    face->press('P', with::Alt);
    EXPECT_TRUE(shows("Sheet 11 of 12"));
    face->pressDialogButton("Close");
    expectDialog("dlgPrint");
    face->press(key::Escape);
    expectNoDialog();
    EXPECT_EQ(page(), 2);
}

} // namespace
} // namespace pixmo::behaviour
