#include "core/base/error.h"
#include "core/printing/cprinter.h"
#include "faces/scripted/scriptedprinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo {
namespace {

using testing::ElementsAre;

class PrinterTest : public testing::Test {
protected:
    scripted::Printers printers;
    scripted::PrinterScript& script = *printers.script;
    cPrinter printer{printers};
};

TEST_F(PrinterTest, MetricsAreTheDevices) {
    EXPECT_EQ(printer.Horz_Res(), 0);
    EXPECT_EQ(printer.TwipsPerPixelX(), 0);
    script.caps[DeviceCap::HorzSize] = 210;
    script.caps[DeviceCap::HorzRes] = 600;
    script.caps[DeviceCap::PhysicalOffsetY] = 60;
    printer.LoadDefaultPrinterDC();
    EXPECT_DOUBLE_EQ(printer.TwipsPerPixelX(), 19.845);
    EXPECT_FALSE(cPrinter::PrinterAvailable());
    EXPECT_EQ(printer.GetCaps(),
              "Caps for Printer-> Front Office\r\nLogPixels_X = 300\r\nLogPixels_Y = 300\r\n"
              "Horz_Res = 600\r\nVert_Res = 3150\r\nHorz_Size = 210\r\nVert_Size = 267\r\n"
              "Physical_Width = 2550\r\nPhysical_Height = 3300\r\nPhysicalOffset_X = 75\r\n"
              "PhysicalOffset_Y = 60\r\nTwipsPerPixelX = 19.845\r\nTwipsPerPixelY = 4.806");
}

TEST_F(PrinterTest, StartDocOpensTheCurrentPrinter) {
    EXPECT_EQ(printer.Start_Doc(""), 7);
    EXPECT_EQ(script.openDevices, 1);
    EXPECT_EQ(printer.Start_Page(), 1);
    EXPECT_TRUE(printer.Text_Out("x", 3, 4));
    EXPECT_EQ(printer.End_Page(), 1);
    EXPECT_EQ(printer.End_Doc(), 1);
    printer.Delete_DC();
    EXPECT_EQ(script.openDevices, 0);
    EXPECT_EQ(printer.Start_Page(), spool::Error);
    EXPECT_THAT(script.record,
                ElementsAre("document Pixmo", "page", "text 3,4 x", "end page", "end document"));
    script.opens = false;
    EXPECT_LE(printer.Start_Doc("x"), 0);
}

TEST_F(PrinterTest, Fonts) {
    printer.LoadDefaultPrinterDC();
    struct {
        int16_t style;
        int italic, strikeOut, underline;
    } const cases[] = {{0, 0, 0, 0}, {1, 1, 0, 0}, {2, 0, 1, 0}, {4, 0, 0, 1}, {7, 1, 1, 1}};
    for (const auto& each : cases) {
        printer.SetFont(12, "Times New Roman", 700, each.style);
        const LogFont& font = script.fonts.back();
        EXPECT_EQ(font.lfItalic != 0, each.italic != 0) << each.style;
        EXPECT_EQ(font.lfStrikeOut != 0, each.strikeOut != 0) << each.style;
        EXPECT_EQ(font.lfUnderline != 0, each.underline != 0) << each.style;
        EXPECT_EQ(font.lfHeight, -50) << "240 twips of 4.796 a pixel";
        EXPECT_EQ(font.lfWeight, 700);
    }
    EXPECT_EQ(script.liveFonts, 1);
    printer.DeleteFont();
    printer.DeleteFont();
    EXPECT_EQ(script.liveFonts, 0);
    printer.SetFont(1638, "Times New Roman", 400, 0);
    EXPECT_THROW(printer.SetFont(1639, "Times New Roman", 400, 0), Error);
}

TEST_F(PrinterTest, TheChosenPrinterBecomesTheCurrentOne) {
    printer.LoadDefaultPrinterDC();
    EXPECT_FALSE(printer.ShowPrinter(0, 0));
    EXPECT_EQ(printer.DeviceName(), "Front Office");
    EXPECT_EQ(script.openDevices, 1);
    printers.chosen = "Archive";
    EXPECT_TRUE(printer.ShowPrinter(0, 0));
    EXPECT_EQ(printer.DeviceName(), "Archive");
    EXPECT_EQ(printers.current, "Archive");
    EXPECT_EQ(script.openDevices, 0);
}

} // namespace
} // namespace pixmo
