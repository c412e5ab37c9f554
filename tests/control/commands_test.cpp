#include "core/control/menus.h"
#include "core/dialogs/dlggotopage.h"
#include "faces/scripted/scriptedcontrol.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo {
namespace {

using scripted::ScriptedControl;
using testing::Contains;
using testing::ElementsAre;

class CommandsTest : public testing::Test {
protected:
    void open(int16_t page = 2, int16_t count = 5, const char* size = "2550x3300") {
        control.open(5, page, count);
        control.reader->finish(control.tag("GP", 5, page), ScriptedControl::pageFile(size));
    }
    ImageView& view() { return *control.view; }
    RasterView& picture() { return control.view->lvrImage(); }
    bool press(int16_t key, int16_t shift = 0) { return view().UserControl_KeyDown(key, shift); }
    std::vector<std::string> enabledButtons() {
        std::vector<std::string> keys;
        for (const ToolButton& button : view().tlbImage().Buttons)
            if (button.Enabled && button.Visible)
                keys.push_back(button.Key);
        return keys;
    }
    std::string menu(const std::vector<MenuItem>& items) {
        std::string text;
        for (const MenuItem& item : items)
            text += item.separator ? "-" + item.name + " "
                                   : item.name + (item.checked   ? "* "
                                                  : item.enabled ? " "
                                                                 : "? ");
        return text;
    }

    ScriptedControl control;
};

TEST_F(CommandsTest, TheToolbarIsTheTableOfButtons) {
    view().setProperty("ThumbsAvailable", true);
    view().setProperty("BookmarkAvailable", true);
    view().runCommand("BUTTONCAPTIONS");
    std::string buttons;
    for (const ToolButton& b : view().tlbImage().Buttons)
        buttons += b.Key + "/" + b.Caption + "/" + b.ToolTipText + "/" +
                   std::to_string(static_cast<int>(b.Style)) + "\n";
    EXPECT_EQ(buttons, "THUMBS/Thumbs/View thumbnails/0\nsep0///3\nPRINT/Print/Print document/0\n"
                       "QUICKPRINT/Quick Print/Print current page/0\nCANCEL/Cancel/Cancel transfer/0\n"
                       "sep1///3\nPAN/Pan/Pan image/2\nSELECTION/Zoom/Zoom to selection/2\nsep2///3\n"
                       "ROTL/Rotate/Rotate left/0\nROTR/Rotate/Rotate right/0\nsep3///3\n"
                       "PAGEPREV/Prev/Previous page/0\nPAGENEXT/Next/Next page/0\nPAGEGOTO/Goto/Goto page/0\n"
                       "sep4///3\nFITHEIGHT/Fit Height/Fit height/0\nFITWIDTH/Fit Width/Fit width/0\n"
                       "sep5///3\nSTAR/Bookmark/Bookmark Page/0\n");
    EXPECT_EQ(view().tlbImage().Images->size, 32);
    view().runCommand("SMALLBUTTONS");
    EXPECT_EQ(view().tlbImage().Images->size, 16);
    control.destroy();
    EXPECT_EQ((control.settings->values[{"Settings", "BigButtons"}]), "FALSE");
    EXPECT_EQ((control.settings->values[{"Settings", "ButtonCaptions"}]), "TRUE");
}

TEST_F(CommandsTest, ButtonsAreEnabledByTheFacts) {
    view().commands().canPrint = false;
    view().setProperty("BookmarkAvailable", true);
    EXPECT_THAT(enabledButtons(), ElementsAre());
    control.open(5, 1, 5);
    EXPECT_THAT(enabledButtons(), ElementsAre("CANCEL", "PAGENEXT", "PAGEGOTO"));
    control.reader->finish(control.tag("GP", 5, 1), ScriptedControl::pageFile());
    EXPECT_THAT(enabledButtons(), ElementsAre("PAN", "SELECTION", "ROTL", "ROTR", "PAGENEXT", "PAGEGOTO",
                                              "FITHEIGHT", "FITWIDTH", "STAR"));
    view().commands().canPrint = true;
    view().setProperty("Page", int16_t{5});
    control.reader->finish(control.tag("GP", 5, 5), ScriptedControl::pageFile());
    EXPECT_THAT(enabledButtons(), testing::IsSupersetOf({"PRINT", "QUICKPRINT", "PAGEPREV"}));
    EXPECT_THAT(enabledButtons(), testing::Not(Contains("PAGENEXT")));
    open(1, 1);
    EXPECT_THAT(enabledButtons(), testing::Not(Contains("PAGEGOTO")));
}

TEST_F(CommandsTest, ForbiddenCommandsVanishEverywhere) {
    open();
    view().commands().setForbidden("ROTR", true);
    view().commands().setForbidden("GRAYSCALE", true);
    EXPECT_FALSE(view().tlbImage().find("ROTR")->Visible);
    EXPECT_THAT(menu(view().lvrImage_RightClick()), testing::Not(testing::HasSubstr("mnuPopupGrayscale")));
    EXPECT_FALSE(press('G', 3)) << "left to the host";
    EXPECT_TRUE(view().menuChecks().mnuPopupGrayscale);
    view().tlbImage_ButtonClick("ROTR");
    view().runCommand("ROTR");
    EXPECT_EQ(picture().raster().width, 2550);
    view().commands().setForbidden("ROTR", false);
    view().runCommand("ROTR");
    EXPECT_EQ(picture().raster().width, 3300);
}

TEST_F(CommandsTest, TheHostDecidesOnMenusAndItsOwnButtons) {
    open();
    EXPECT_FALSE(view().commands().isOffered("STAR"));
    view().setProperty("BookmarkAvailable", true);
    EXPECT_TRUE(view().commands().isOffered("STAR"));
    view().commands().menusShown = false;
    EXPECT_EQ(menu(view().lvrImage_RightClick()) + menu(view().tlbImage_MouseDown()), "");
}

TEST_F(CommandsTest, Menus) {
    EXPECT_EQ(menu(view().tlbImage_MouseDown()),
              "mnuPopup1ButtonCaptions -mnupopupsep0 mnuPopup1LargeButtons* mnuPopup1SmallButtons ");
    EXPECT_EQ(menu(view().lvrImage_RightClick()),
              "mnuPopupPan* mnuPopupSelect? -mnuPop2Sep1 mnuPopupFitBest? mnuPopupFitHeight? "
              "mnuPopupFitWidth? mnuPopupGrayscale* -mnuPop2Sep2 mnuPopupCopy? mnuPopupSavePage? "
              "mnuPopupPrint? -mnuPop2Sep3 mnuPopupImageInfo mnuPopupAbout ");
    open();
    view().runCommand("SELECTION");
    view().runCommand("GRAYSCALE");
    press('D', 1);
    EXPECT_EQ(menu(view().lvrImage_RightClick()),
              "mnuPopupPan mnuPopupSelect* -mnuPop2Sep1 mnuPopupFitBest mnuPopupFitHeight "
              "mnuPopupFitWidth mnuPopupGrayscale -mnuPop2Sep2 mnuPopupCopy mnuPopupSavePage "
              "mnuPopupPrint -mnuPop2Sep3 mnuPopupImageInfo mnuPopupAbout mnuDebug ");
    EXPECT_TRUE(view().tlbImage().find("SELECTION")->Pressed);
    EXPECT_FALSE(view().tlbImage().find("PAN")->Pressed);
    EXPECT_FALSE(picture().GrayScale());
    control.container->inUserMode = false;
    EXPECT_TRUE(view().lvrImage_RightClick().empty() && view().tlbImage_MouseDown().empty());
}

TEST_F(CommandsTest, TheMapOfKeys) {
    constexpr int16_t PageUp = 0x21, PageDown = 0x22, End = 0x23, Home = 0x24, Left = 0x25, Up = 0x26,
                      Right = 0x27, Down = 0x28;
    open();
    picture().setZoom(200);
    picture().scrollTo(100, 100);
    const auto position = [&] {
        return std::make_pair(picture().horizontalBar().position, picture().verticalBar().position);
    };
    for (const int16_t shift : std::vector<int16_t>{0, 2, 4, 5, 6}) {
        picture().scrollTo(100, 100);
        EXPECT_TRUE(press(Down, shift) && press(Down, shift) && press(Right, shift));
        EXPECT_EQ(position(), std::make_pair(130, 160)) << shift;
        EXPECT_TRUE(press(Up, shift) && press(Left, shift));
        EXPECT_EQ(position(), std::make_pair(100, 130)) << shift;
    }
    press(Down, 1);
    press(Right, 1);
    EXPECT_EQ(position(), std::make_pair(picture().horizontalBar().maximum, picture().verticalBar().maximum));
    press(Up, 1);
    press(Left, 1);
    EXPECT_EQ(position(), std::make_pair(0, 0));
    press('W', 3);
    EXPECT_EQ(picture().sizeMode(), SizeMode::FitWidth);
    press('H', 3);
    EXPECT_EQ(picture().verticalBar().maximum, 0);
    press('G', 3);
    EXPECT_FALSE(view().menuChecks().mnuPopupGrayscale);
    EXPECT_EQ(view().txtPage(), "Page 2 of 5");
    press(PageDown);
    EXPECT_EQ(view().txtPage(), "Page 3 of 5");
    press(PageUp, 2);
    EXPECT_EQ(view().txtPage(), "Page 2 of 5");
    press(End);
    press(PageDown);
    EXPECT_EQ(view().txtPage(), "Page 5 of 5");
    press(Home, 4);
    EXPECT_EQ(view().txtPage(), "Page 1 of 5");
    for (const auto& [key, shift] : std::vector<std::pair<int16_t, int16_t>>{
             {PageUp, 1}, {PageUp, 3}, {Up, 3}, {Up, 7}, {Home, 1}, {'D', 0}, {'G', 1}, {'T', 2}, {0x41, 0}})
        EXPECT_FALSE(press(key, shift)) << key << " with " << shift;
    EXPECT_EQ(view().txtPage(), "Page 1 of 5");
}

TEST_F(CommandsTest, AFaceCanAskWhetherAKeyMeansSomething) {
    open();
    const auto expectSame = [this] {
        for (int16_t shift = 0; shift < 8; ++shift)
            for (int16_t key = 1; key < 256; ++key)
                EXPECT_EQ(view().commands().isKey(key, shift), press(key, shift)) << key << " " << shift;
    };
    expectSame();
    view().commands().setForbidden("FITHEIGHT", true);
    EXPECT_FALSE(view().commands().isKey('H', 3));
    expectSame();
}

TEST_F(CommandsTest, KeysOfTheDebugPane) {
    press('D', 7);
    EXPECT_TRUE(view().commands().debugShown);
    press('D', 1);
    EXPECT_FALSE(view().commands().debugShown);
    ASSERT_EQ(control.messageBox->questions.size(), 2U);
    EXPECT_EQ(control.messageBox->questions[0].text, "Debugging turned on.\r\nCtl+Alt+Shft+T to view log.");
    EXPECT_EQ(control.messageBox->questions[1].text, "Debugging turned off.\r\nShift+T to view log.");
    EXPECT_THAT(view().txtDebug().lines(), Contains("UserControl_KeyDown 68 7"));
    press('C', 7);
    EXPECT_TRUE(view().txtDebug().lines().empty());
    press('T', 7);
    EXPECT_THAT(control.dialogs->shown, ElementsAre("log: No log is written."));
    control.container->inUserMode = false;
    press('D', 7);
    EXPECT_EQ(control.messageBox->questions.size(), 2U);
}

TEST_F(CommandsTest, TheHostHearsOfKeysAfterTheControl) {
    open();
    std::string seen;
    view().events().KeyDown.connect([&](int16_t& key, int16_t& shift) {
        seen = view().txtPage() + " " + std::to_string(key) + " " + std::to_string(shift);
        key = 0;
    });
    int16_t key = 0x22;
    int16_t shift = 0;
    view().UserControl_KeyDown(key, shift);
    EXPECT_EQ(seen, "Page 3 of 5 34 0");
    EXPECT_EQ(key, 0);
}

TEST_F(CommandsTest, GotoIsLimitedToTheDocument) {
    open(2, 5);
    for (const auto& c : std::vector<std::pair<std::string, std::string>>{{"4", "Page 4 of 5"},
                                                                          {"00003", "Page 3 of 5"},
                                                                          {"99999", "Page 5 of 5"},
                                                                          {"", "Page 5 of 5"},
                                                                          {"-7", "Page 1 of 5"}}) {
        control.dialogs->onGoto = [&](dlgGotoPage& dialog) {
            dialog.setTxtPageNumber(c.first);
            dialog.cmdOK_Click();
        };
        view().tlbImage_ButtonClick("PAGEGOTO");
        EXPECT_EQ(view().txtPage(), c.second) << c.first;
    }
    control.dialogs->onGoto = [](dlgGotoPage& dialog) {
        dialog.setTxtPageNumber("3");
        dialog.cmdCancel_Click();
    };
    view().tlbImage_ButtonClick("PAGEGOTO");
    EXPECT_EQ(view().txtPage(), "Page 1 of 5");
    EXPECT_EQ(control.dialogs->shown.front(), "goto 2");
}

TEST_F(CommandsTest, UnknownAndDisabledButtons) {
    ToolButton button;
    button.Key = "pan";
    view().commands().tlbImage_ButtonClick(button);
    ASSERT_EQ(control.messageBox->questions.size(), 1U);
    EXPECT_EQ(control.messageBox->questions[0].text, "WARNING: No message handler for the \"pan\" button!");
    EXPECT_EQ(control.messageBox->questions[0].icon, Icon::Exclamation);
    button.Enabled = false;
    view().commands().tlbImage_ButtonClick(button);
    button.Enabled = true;
    button.Visible = false;
    view().commands().tlbImage_ButtonClick(button);
    EXPECT_EQ(control.messageBox->questions.size(), 1U);
    open();
    button = {};
    button.Key = "ZOOM";
    picture().setZoom(100);
    picture().dragMode = false;
    view().commands().tlbImage_ButtonClick(button);
    EXPECT_FLOAT_EQ(picture().zoom(), 110);
    EXPECT_TRUE(picture().dragMode);
}

TEST_F(CommandsTest, InformationCopyAndSave) {
    view().runCommand("IMAGEINFO");
    open();
    view().runCommand("IMAGEINFO");
    view().runCommand("ABOUT");
    EXPECT_THAT(control.dialogs->shown,
                ElementsAre("Image Information: No image displayed.",
                            "Image Information: Image Size: 8.50\" x 11.00\"\r\nImage pixels: 2550 x 3300\r\n"
                            "Resolution: 300 x 300 dpi\r\nColor Depth: 1 bit per pixel\r\nDocID: 5",
                            "About Pixmo: Version 1.0.0"));
    view().runCommand("ROTL");
    EXPECT_TRUE(press('C', 2));
    ASSERT_EQ(control.clipboard->pictures.size(), 1U);
    EXPECT_EQ(control.clipboard->pictures[0].width, 3300);
    view().runCommand("SAVEPAGE");
    EXPECT_TRUE(control.pageWriter->written.empty());
    control.dialogs->savePath = "x.tif";
    view().runCommand("SAVEPAGE");
    EXPECT_THAT(control.pageWriter->written, ElementsAre("x.tif 3300x2550"));
    EXPECT_EQ(control.dialogs->shown.back(), "save: document 5 page 2");
    control.container->filesAllowed = false;
    EXPECT_FALSE(view().commands().isOffered("SAVEPAGE"));
    EXPECT_FALSE(view().commands().isEnabled("SAVEPAGE"));
}

TEST_F(CommandsTest, PlacesOfPagesAreKeptWithinTheDocument) {
    open();
    picture().setZoom(300);
    picture().scrollTo(500, 700);
    const ViewPlace place = picture().place();
    view().setProperty("Page", int16_t{3});
    control.reader->finish(control.tag("GP", 5, 3), ScriptedControl::pageFile());
    view().runCommand("FITBEST");
    view().runCommand("ROTR");
    view().setProperty("Page", int16_t{2});
    EXPECT_EQ(picture().place(), place);
    view().setProperty("Page", int16_t{3});
    EXPECT_EQ(picture().sizeMode(), SizeMode::FitBest);
    EXPECT_FALSE(picture().isTurned());
}

class MouseTest : public CommandsTest {
protected:
    ViewMouse& mouse() { return view().mouse(); }
};

TEST_F(MouseTest, DragsPanThePicture) {
    open();
    picture().setZoom(300);
    picture().scrollTo(500, 700);
    mouse().lvrImage_MouseDown(mouse_button::Left, 100, 100);
    EXPECT_EQ(control.viewSurface->shownPointer, 15);
    EXPECT_FALSE(picture().GrayScale());
    mouse().lvrImage_MouseMove(90, 130);
    EXPECT_EQ(picture().horizontalBar().position, 510);
    EXPECT_EQ(picture().verticalBar().position, 670);
    mouse().lvrImage_MouseUp(90, 130);
    EXPECT_EQ(control.viewSurface->shownPointer, 0);
    EXPECT_TRUE(picture().GrayScale());
    mouse().lvrImage_MouseMove(0, 0);
    EXPECT_EQ(picture().verticalBar().position, 670);
    mouse().lvrImage_MouseDown(mouse_button::Left, 100, 100);
    mouse().lvrImage_MouseMove(0, 0);
    mouse().cancelDrag();
    EXPECT_EQ(picture().horizontalBar().position, 510);
}

TEST_F(MouseTest, RubberBandsZoom) {
    open();
    view().runCommand("SELECTION");
    const float before = picture().zoom();
    mouse().lvrImage_MouseDown(mouse_button::Left, 300, 300);
    EXPECT_EQ(control.viewSurface->shownPointer, 2);
    EXPECT_TRUE(picture().rubberBandActive);
    mouse().lvrImage_MouseMove(100, -50);
    EXPECT_EQ(picture().rubberBand, (RealRectangle{100, 0, 200, 300}));
    const int repaints = control.viewSurface->repaints;
    mouse().lvrImage_MouseUp(100, 50);
    EXPECT_FALSE(picture().rubberBandActive);
    EXPECT_NEAR(picture().zoom() / before, 4, 0.01);
    EXPECT_LE(control.viewSurface->repaints, repaints + 3);
    const float zoomed = picture().zoom();
    mouse().lvrImage_MouseDown(mouse_button::Left, 300, 300);
    mouse().lvrImage_MouseUp(302, 302);
    EXPECT_EQ(picture().zoom(), zoomed) << "a click is no band";
}

TEST_F(MouseTest, TheWheelScrollsAndZooms) {
    open();
    picture().setZoom(300);
    picture().scrollTo(500, 700);
    mouse().lvrImage_MouseWheel(0, -1, 0, 10, 10);
    EXPECT_GT(picture().verticalBar().position, 700);
    mouse().lvrImage_MouseWheel(0, -1, 1, 10, 10);
    EXPECT_GT(picture().horizontalBar().position, 500);
    const RealPoint under = picture().geometry().toPicture({200, 300});
    mouse().lvrImage_MouseWheel(0, 2, 2, 200, 300);
    EXPECT_NEAR(picture().zoom(), 363, 0.01);
    EXPECT_NEAR(picture().geometry().toPicture({200, 300}).x, under.x, 2);
    mouse().lvrImage_MouseWheel(0, 100, 2, 0, 0);
    EXPECT_EQ(picture().zoom(), 1600);
    mouse().lvrImage_MouseWheel(0, -200, 2, 0, 0);
    EXPECT_EQ(picture().zoom(), 2);
    view().runCommand("FITWIDTH");
    mouse().lvrImage_MouseWheel(0, -1000, 0, 0, 0);
    EXPECT_EQ(view().txtPage(), "Page 2 of 5") << "the wheel does not turn pages";
}

} // namespace
} // namespace pixmo
