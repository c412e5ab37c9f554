#include "core/dialogs/dlgabout.h"
#include "core/dialogs/dlggotopage.h"
#include "core/dialogs/dlglog.h"
#include "core/dialogs/dlgsavepage.h"
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
        dialog.setTxtPageNumber(c.text);
        EXPECT_EQ(dialog.PageNumber(), c.page) << c.text;
        EXPECT_EQ(dialog.txtPageNumber(), c.shown);
        dialog.cmdCancel_Click();
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
    dlgAbout dialog(&box);
    EXPECT_EQ(dialog.lblDescription(),
              "This internet enabled image viewer is part of the Vellane document imaging system.");
    Raster fax = makeRaster(PixelFormat::Gray, 1728, 1078);
    fax.xResolution = 204;
    fax.yResolution = 98;
    fax.bitsPerPixel = 4;
    dialog.ShowImageInfo(&fax, "0");
    EXPECT_EQ(dialog.lblInformation(), "Image Size: 8.50\" x 11.00\"\r\nImage pixels: 1728 x 1078\r\n"
                                       "Resolution: 204 x 98 dpi\r\nColor Depth: 4 bits per pixel");
    dialog.ShowImageInfo(nullptr, "7");
    EXPECT_EQ(dialog.lblInformation(), "No image displayed.");
    EXPECT_EQ(dialog.Caption(), "Image Information");
    EXPECT_TRUE(box.questions.empty());
}

TEST(LogDialog, ShowsTheTailInWholeLines) {
    scripted::ScratchFolder scratch;
    const auto path = scratch.path() / "log";
    dlgLog dialog(path);
    dialog.refresh();
    EXPECT_EQ(dialog.text(), "There is no log file yet.");
    std::ofstream(path, std::ios::binary) << std::string(dlgLog::TailBytes, 'x') << "\nlast\n";
    dialog.refresh();
    EXPECT_EQ(dialog.text(), "last\n");
}

} // namespace
} // namespace pixmo
