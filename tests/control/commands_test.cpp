#include "core/control/menus.h"
#include "core/windows/dlggotopage.h"
#include "faces/scripted/scriptedcontrol.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo {
namespace {

using scripted::ScriptedControl;
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
    std::string menu(const std::vector<MenuItem>& items) {
        std::string text;
        for (const MenuItem& item : items)
            text += item.name + " ";
        return text;
    }

    ScriptedControl control;
};

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

TEST_F(CommandsTest, NothingIsOfferedWhileAFormIsDesigned) {
    EXPECT_FALSE(view().lvrImage_RightClick().empty() || view().tlbImage_MouseDown().empty());
    control.container->inUserMode = false;
    EXPECT_TRUE(view().lvrImage_RightClick().empty() && view().tlbImage_MouseDown().empty());
    press('D', 7);
    EXPECT_TRUE(control.messageBox->questions.empty());
}

TEST_F(CommandsTest, PrintingNeedsAPrinter) {
    open();
    view().commands().canPrint = false;
    EXPECT_FALSE(view().commands().isEnabled("PRINT") || view().commands().isEnabled("QUICKPRINT"));
    view().commands().canPrint = true;
    EXPECT_TRUE(view().commands().isEnabled("PRINT") && view().commands().isEnabled("QUICKPRINT"));
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
    EXPECT_THAT(
        control.dialogs->shown,
        ElementsAre("Image Information: No image displayed.",
                    "Image Information: Image Size: 8.50\" x 11.00\"\r\nImage pixels: 2550 x 3300\r\n"
                    "Resolution: 300 x 300 dpi\r\nColor Depth: 1 bit per pixel\r\nDocID: 5",
                    "About Pixmo: Pixmo; Version 1.0.0; This internet enabled image viewer is part of "
                    "the Vellane document imaging system."));
    view().runCommand("ROTL");
    EXPECT_TRUE(press('C', 2));
    ASSERT_EQ(control.clipboard->pictures.size(), 1U);
    EXPECT_EQ(control.clipboard->pictures[0].width, 3300);
    view().runCommand("SAVEPAGE");
    EXPECT_TRUE(control.pageWriter->written.empty());
    control.dialogs->savePath = "x.tif";
    view().runCommand("SAVEPAGE");
    EXPECT_THAT(control.pageWriter->written, ElementsAre("x.tif 3300x2550"));
    EXPECT_EQ(control.dialogs->shown.back(), "Save Page As: document 5 page 2.tif");
    control.container->filesAllowed = false;
    EXPECT_FALSE(view().commands().isOffered("SAVEPAGE"));
    EXPECT_FALSE(view().commands().isEnabled("SAVEPAGE"));
}

TEST_F(CommandsTest, WhatTheyDoIsSeen) {
    open();
    control.dialogs->when<dlgGotoPage>([](dlgGotoPage& dialog) {
        dialog.setTxtPageNumber("4");
        dialog.cmdOK_Click();
    });
    view().runCommand("PAGEGOTO");
    EXPECT_EQ(view().property("Page"), PropertyValue(int16_t{4}));
    control.reader->finish(control.tag("GP", 5, 4), ScriptedControl::pageFile());
    const ImageList* const large = view().tlbImage().Images;
    view().runCommand("SMALLBUTTONS");
    EXPECT_LT(view().tlbImage().Images->size, large->size);
    for (const char* pressed : {"SELECTION", "PAN"}) {
        view().runCommand(pressed);
        for (const char* key : {"SELECTION", "PAN"})
            EXPECT_EQ(view().tlbImage().find(key)->Pressed, std::string(key) == pressed);
    }
    view().runCommand("GRAYSCALE");
    EXPECT_FALSE(picture().GrayScale());
    view().runCommand("CLEARDEBUG");
    EXPECT_TRUE(view().txtDebug().lines().empty());
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
