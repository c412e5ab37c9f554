#include "core/windows/dlgabout.h"
#include "core/windows/dlggotopage.h"
#include "core/windows/dlglog.h"
#include "core/windows/dlgsavepage.h"
#include "faces/scripted/dialoguser.h"
#include "faces/scripted/scriptedports.h"

#include <gtest/gtest.h>

#include <fstream>

namespace pixmo {
namespace {

TEST(GotoDialog, TakesDigitsOnly) {
    std::string typed;
    for (const char key : {'1', '2', 'a', '-', '.', ' ', '\b', '3'})
        if (const int16_t taken = dlgGotoPage::txtPageNumber_KeyPress(key))
            typed += static_cast<char>(taken);
    EXPECT_EQ(typed, "12\b3");
}

TEST(GotoDialog, PutsItsTextInOrder) {
    struct Case {
        const char* text;
        int16_t page;
        const char* shown;
    };
    for (const Case& c :
         {Case{"00042", 42, "42"}, Case{"40000", 32000, "32000"}, Case{"", 0, "0"}, Case{"x7", 0, "0"},
          Case{"99999999999999999999", 32000, "32000"}, Case{"12x", 12, "12"}}) {
        dlgGotoPage dialog;
        const scripted::DialogUser user(dialog);
        user.type("txtPageNumber", c.text);
        user.click("OK");
        EXPECT_FALSE(dialog.isOpen());
        EXPECT_EQ(dialog.PageNumber(), c.page) << c.text;
        EXPECT_EQ(user.text("txtPageNumber"), c.shown);
        user.click("Cancel");
        EXPECT_EQ(dialog.PageNumber(), 0);
    }
}

TEST(SavePageDialog, KnowsItsEndingsAndRemembers) {
    scripted::SettingsStore settings;
    dlgSavePage dialog("page 1", settings);
    EXPECT_EQ(dialog.suggestedFile(), "page 1.tif");
    EXPECT_EQ(dialog.folder(), "");
    struct Case {
        const char* chosen;
        const char* file;
    };
    for (const Case& c :
         {Case{"a", "a.tif"}, Case{"a.TIF", "a.TIF"}, Case{"a.tiff", "a.tiff"}, Case{"a.png", "a.png"},
          Case{"a.b", "a.b.tif"}, Case{"a.jpg", "a.jpg.tif"}, Case{"x.y/a", "x.y/a.tif"}})
        EXPECT_EQ(dialog.withEnding(c.chosen), std::filesystem::path(c.file));
    dialog.setFormat(dlgSavePage::Format::Png);
    EXPECT_EQ(dialog.withEnding("a.b"), std::filesystem::path("a.b.png"));
    dialog.cmdOK_Click("folder/a.Png");
    EXPECT_EQ(dlgSavePage("p", settings).suggestedFile(), "p.png");
    EXPECT_EQ(dlgSavePage("p", settings).folder(), "folder");
    dialog.cmdOK_Click("other/a.tiff");
    EXPECT_EQ(dlgSavePage("p", settings).format(), dlgSavePage::Format::Tiff);
}

TEST(AboutDialog, DescribesThePicture) {
    scripted::MessageBox box;
    scripted::Clipboard clipboard;
    dlgAbout dialog(&box, clipboard);
    EXPECT_EQ(dialog.lblDescription(),
              "This internet enabled image viewer is part of the Vellane document imaging system.");
    Raster fax = makeRaster(PixelFormat::Gray, 1728, 1078);
    fax.xResolution = 204;
    fax.yResolution = 98;
    fax.bitsPerPixel = 4;
    dialog.ShowImageInfo(&fax, "0");
    EXPECT_EQ(dialog.lblInformation(), "Image Size: 8.50\" x 11.00\"\r\nImage pixels: 1728 x 1078\r\n"
                                       "Resolution: 204 x 98 dpi\r\nColor Depth: 4 bits per pixel");
    scripted::DialogUser(dialog).click("&Copy");
    EXPECT_EQ(clipboard.texts, std::vector<std::string>{dialog.lblInformation()});
    EXPECT_TRUE(dialog.isOpen());
    dialog.ShowImageInfo(nullptr, "7");
    EXPECT_EQ(dialog.lblInformation(), "No image displayed.");
    EXPECT_EQ(dialog.Caption(), "Image Information");
    EXPECT_TRUE(box.questions.empty());
}

class LogDialog : public testing::Test {
protected:
    void write(const std::string& text) const { std::ofstream(path, std::ios::binary) << text; }
    std::string selected(const dlgLog& dialog) const {
        const TextRange range = dialog.selection();
        return dialog.text().substr(range.begin, range.end - range.begin) + std::to_string(range.begin);
    }

    scripted::ScratchFolder scratch;
    scripted::SettingsStore settings;
    scripted::Clipboard clipboard;
    const std::filesystem::path path = scratch.path() / "log";
};

TEST_F(LogDialog, ShowsTheTailInWholeLines) {
    dlgLog none({}, settings, clipboard);
    EXPECT_EQ(scripted::DialogUser(none).texts(), "Log: No log file; &Find:; No log is written.");
    dlgLog dialog(path, settings, clipboard);
    EXPECT_EQ(dialog.text(), "There is no log file yet.");
    write(std::string(dlgLog::TailBytes, 'x') + "\nlast\n");
    EXPECT_TRUE(scripted::DialogUser(dialog).press(0x74));
    EXPECT_EQ(dialog.text(), "last\n");
    EXPECT_EQ(dialog.selection(), (TextRange{5, 5})) << "its end";
}

TEST_F(LogDialog, SearchesRoundTheTextWhateverTheCase) {
    constexpr int16_t F3 = 0x72;
    write("first N\u00C4\u0416dle\r\nsecond\r\nthird n\u00E4\u0436dle\r\n");
    dlgLog dialog(path, settings, clipboard);
    const scripted::DialogUser user(dialog);
    EXPECT_EQ(dialog.takeFocus(), "txtFind");
    user.click("&Next");
    user.type("txtFind", "n\u00C4\u0436DLE");
    struct Step {
        std::function<void()> deed;
        const char* selected;
    };
    for (const Step& step : {Step{[&] { user.click("&Next"); }, "N\u00C4\u0416dle6"},
                             Step{[&] { user.press(F3); }, "n\u00E4\u0436dle28"},
                             Step{[&] { user.press(F3); }, "N\u00C4\u0416dle6"},
                             Step{[&] { user.click("&Previous"); }, "n\u00E4\u0436dle28"},
                             Step{[&] { user.press(F3, 1); }, "N\u00C4\u0416dle6"},
                             Step{[&] {
                                      user.find("txtLog").selected({15, 21});
                                  },
                                  "second15"},
                             Step{[&] { user.press(F3, 1); }, "N\u00C4\u0416dle6"}}) {
        step.deed();
        EXPECT_EQ(selected(dialog), step.selected);
        EXPECT_EQ(user.text("lblFound"), "");
    }
    user.click("&Copy");
    user.type("txtFind", "zzz");
    user.click("&Next");
    EXPECT_EQ(user.text("lblFound"), "Not found");
    EXPECT_EQ(selected(dialog), "N\u00C4\u0416dle6") << "stays";
    user.press(0x74);
    user.click("&Copy");
    EXPECT_EQ(clipboard.texts, (std::vector<std::string>{"N\u00C4\u0416dle", dialog.text()}));
    EXPECT_TRUE(user.press('F', 2));
    EXPECT_EQ(dialog.takeFocus(), "txtFind");
    user.click("Close");
    EXPECT_FALSE(dialog.isOpen());
}

TEST_F(LogDialog, KeepsItsSizeWithinBounds) {
    dlgLog dialog(path, settings, clipboard);
    const auto size = [&] { return dialog.describe().size; };
    EXPECT_EQ(size()->first.width, 760);
    EXPECT_EQ(size()->first.height, 480);
    size()->keep({700, 420});
    EXPECT_EQ(size()->first.width, 700);
    EXPECT_EQ(size()->first.height, 420);
    size()->keep({1, 99999});
    EXPECT_EQ(size()->first.width, 200);
    EXPECT_EQ(size()->first.height, 10000);
}

} // namespace
} // namespace pixmo
