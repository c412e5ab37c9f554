#include "core/printing/dlgprint.h"
#include "core/printing/pageprinter.h"
#include "core/printing/printpreview.h"
#include "faces/scripted/scriptedports.h"
#include "faces/scripted/scriptedprinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

Raster picture(int32_t width, int32_t height, double xResolution, double yResolution) {
    Raster raster = makeRaster(PixelFormat::Bilevel, width, height);
    raster.xResolution = xResolution;
    raster.yResolution = yResolution;
    return raster;
}

/// On Letter paper of 300 by 300 with a printable area of 8 by 10.5 inches.
class PagePrinterTest : public testing::Test {
protected:
    PagePrinterTest() {
        request.pages = {3};
        client.given = picture(850, 1100, 100, 100);
    }

    PrintResult print() {
        script.record.clear();
        return PagePrinter(errors, box, printer).imgPrintDoc(request, client);
    }

    PrintRequest request;
    scripted::PrintClient client;
    scripted::MessageBox box;
    scripted::Printers printers;
    scripted::PrinterScript& script = *printers.script;
    cPrinter printer{printers};
    cErrObject errors{&box};
};

TEST_F(PagePrinterTest, PicturesArePlaced) {
    struct {
        const char* what;
        Raster given;
        int16_t scale;
        bool caption, number;
        const char* drawn;
    } const cases[] = {
        {"the paper's proportion", picture(850, 1100, 100, 100), FitToPage, false, false,
         "bits 850x1100 of 0,0 850x1100 at 0,22 2400x3106"},
        {"between caption and number", picture(850, 1100, 100, 100), FitToPage, true, true,
         "bits 850x1100 of 0,0 850x1100 at 41,75 2318x3000"},
        {"landscape is turned", picture(1100, 850, 100, 100), FitToPage, false, false,
         "bits 850x1100 of 0,0 850x1100 at 0,22 2400x3106"},
        {"fine fax, full size", picture(1728, 2156, 204, 196), FullSize, false, false,
         "bits 1728x2156 of 48,49 1632x2058 at 0,0 2400x3150"},
        {"fax with half the lines, fitted", picture(1632, 1078, 204, 98), FitToPage, false, false,
         "bits 1632x1078 of 0,0 1632x1078 at 54,0 2291x3150"},
        {"small, full size", picture(600, 300, 200, 100), FullSize, false, true,
         "bits 600x300 of 0,0 600x300 at 750,1087 900x900"},
        {"too high, full size", picture(800, 1200, 100, 100), FullSize, false, false,
         "bits 800x1200 of 0,75 800x1050 at 0,0 2400x3150"},
        {"a part of a page, never turned", picture(400, 300, 100, 100), CurrentView, false, false,
         "bits 400x300 of 0,0 400x300 at 0,675 2400x1800"},
    };
    box.answers.assign(10, Answer::Yes);
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        client.given = each.given;
        request.scale = each.scale;
        request.caption = each.caption ? "Caption" : "";
        request.pageNumbers.clear();
        if (each.number)
            request.pageNumbers = {"Page 1 of 1"};
        EXPECT_TRUE(print().completed);
        EXPECT_THAT(script.record, Contains(HasSubstr(each.drawn)));
    }
}

TEST_F(PagePrinterTest, AnUnknownScaleFails) {
    request.scale = 3;
    const PrintResult result = print();
    EXPECT_THAT(result.errors, ElementsAre("Page 3: Unknown scale factor '3'"));
    EXPECT_EQ(errors.ProcedureName(), "cLeadImageFunctions.imgQueuePage");
}

TEST_F(PagePrinterTest, CaptionAndNumberStandAtTheEdges) {
    request.caption = "Contract 42";
    request.pageNumbers = {"Page 1 of 1"};
    request.captionFontSize = 12;
    print();
    EXPECT_EQ(script.fonts.back().lfFaceName, "Times New Roman");
    EXPECT_THAT(script.record,
                testing::IsSupersetOf({"text 1062,0 Contract 42", "text 1062,3100 Page 1 of 1"}));
    // 96 characters of 25 pixels fill the width.
    request.caption = std::string(96, 'a');
    print();
    EXPECT_THAT(script.record, Contains("text 0,0 " + std::string(96, 'a')));
    request.caption = std::string(90, 'a') + "\u00FC\u00FC\u00FC\u00FC\u00FC\u00FC\u00FC";
    print();
    EXPECT_THAT(script.record, Contains("text 0,0 " + std::string(90, 'a') + "\u00FC\u00FC\u00FC..."));
    request.caption = "two\r\nlines";
    print();
    EXPECT_THAT(script.record, Contains(HasSubstr("two  lines")));
    EXPECT_EQ(script.liveFonts, 0);
}

TEST_F(PagePrinterTest, TheCoverSheetComesFirst) {
    request.pages = {3, 5};
    request.hasCoverSheet = true;
    request.coverSheet = {"A. Clerk", "5/17/2026 9:30:00 AM", "WS-7", "Deed copies", "2.50"};
    const PrintResult result = print();
    EXPECT_TRUE(result.completed && result.errors.empty());
    ASSERT_EQ(script.record[1], "page");
    EXPECT_EQ(script.record[2], "text 150,150 Print Job Report for User: A. Clerk");
    EXPECT_EQ(script.record[3], "text 150,250 Date: 5/17/2026 9:30:00 AM");
    EXPECT_EQ(script.record[4], "text 150,325 Printed from: WS-7");
    EXPECT_EQ(script.record[5], "text 150,400 PagesPrinted: 2");
    EXPECT_EQ(script.record[6], "text 150,525 Deed copies");
    EXPECT_EQ(script.record[7], "text 425,525 " + std::string(72, '.'));
    EXPECT_EQ(script.record[8], "text 2225,525 2");
    EXPECT_EQ(script.record[9], "text 150,600 Fee");
    EXPECT_EQ(script.record[11], "text 2150,600 2.50");
    EXPECT_THAT(client.statuses, ElementsAre("Printing cover sheet.", "Printing page 1 of 2",
                                             "Printing page 2 of 2", "Finished printing."));
    EXPECT_THAT(client.log, ElementsAre("Printed page: 3", "Printed page: 5"));
}

TEST_F(PagePrinterTest, AsksBeforePagesAreCropped) {
    request.scale = FullSize;
    request.pages = {1, 2};
    EXPECT_FALSE(print().completed);
    EXPECT_TRUE(script.record.empty());
    ASSERT_EQ(box.questions.size(), 1U);
    EXPECT_EQ(box.questions[0].text,
              "WARNING: Some pages must be cropped to fit the current printer's paper.  Continue anyway?");
    box.answers = {Answer::Yes};
    EXPECT_EQ(print().pagesQueued, 2);
    client.given = picture(800, 1050, 100, 100);
    EXPECT_EQ(print().pagesQueued, 2);
    EXPECT_EQ(box.questions.size(), 2U);
}

TEST_F(PagePrinterTest, FailedPagesAreCollected) {
    request.pages = {1, 2, 3};
    client.onPage = [](int16_t page) {
        if (page == 2)
            throw Error(error_number::InvalidPicture, "Error rendering image.");
    };
    PrintResult result = print();
    EXPECT_EQ(result.pagesQueued, 2);
    EXPECT_TRUE(result.completed);
    EXPECT_THAT(result.errors, ElementsAre("Page 2: Error rendering image."));
    script.drawsPictures = false;
    result = print();
    EXPECT_EQ(result.pagesQueued, 0);
    EXPECT_EQ(result.errors.size(), 3U);
    EXPECT_EQ(std::count(script.record.begin(), script.record.end(), "end page"), 2);
    script.drawsTexts = false;
    script.drawsPictures = true;
    request.caption = "Deed";
    request.hasCoverSheet = true;
    result = print();
    EXPECT_EQ(result.pagesQueued, 0);
    ASSERT_EQ(result.errors.size(), 4U);
    EXPECT_THAT(result.errors[0], testing::StartsWith("Cover sheet: "));
}

TEST_F(PagePrinterTest, AJobThatBreaksOffQueuesNothing) {
    request.pages = {1, 2, 3};
    struct {
        const char* what;
        std::function<void()> set;
        bool isError, isAborted;
        std::string reason = {};
    } const cases[] = {
        {"no such printer", [&] { script.opens = false; }, true, false},
        {"no job", [&] { script.opens = true, script.startDoc = spool::Error; }, true, true},
        {"withdrawn by the user", [&] { script.startDoc = spool::UserAbort; }, false, false},
        {"vanishes", [&] { script.startDoc = 1, script.vanishesAtPage = 2; }, true, true},
        {"spooling fails",
         [&] { script.vanishesAtPage = 0, script.endDoc = 0, script.problem = "No such queue."; }, true, true,
         ": No such queue."},
        {"cancelled", [&] { script.endDoc = 1, client.steps = 2; }, false, true},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        each.set();
        const PrintResult result = print();
        EXPECT_FALSE(result.completed);
        EXPECT_EQ(result.pagesQueued, 0);
        EXPECT_EQ(result.errors,
                  each.isError ? std::vector{"Printer error" + each.reason} : std::vector<std::string>());
        EXPECT_EQ(std::count(script.record.begin(), script.record.end(), "abort"), each.isAborted ? 1 : 0);
        EXPECT_EQ(script.openDevices, 0);
    }
}

TEST_F(PagePrinterTest, CopiesAndPaper) {
    request.pages = {1, 2};
    request.copies = 3;
    request.paperSize = 9;
    EXPECT_EQ(print().pagesQueued, 2);
    EXPECT_EQ(std::count(script.record.begin(), script.record.end(), "page"), 6);
    EXPECT_THAT(script.record[0], "paper 9");
    EXPECT_THAT(client.log, Contains("The printer 'Front Office' has no paper of size 9 and keeps its own."));
    script.makesCopies = true;
    script.papers = {9};
    client.log.clear();
    EXPECT_EQ(print().pagesQueued, 2);
    EXPECT_EQ(std::count(script.record.begin(), script.record.end(), "page"), 2);
    EXPECT_THAT(client.log, ElementsAre("Printed page: 1", "Printed page: 2"));
    // The device would repeat the cover sheet.
    request.hasCoverSheet = true;
    print();
    EXPECT_EQ(std::count(script.record.begin(), script.record.end(), "page"), 1 + 3 * 2);
}

// The same calls with the same numbers: what a sheet looks like is decided before any device draws it.
TEST_F(PagePrinterTest, ThePreviewDrawsWhatIsPrinted) {
    request.pages = {1, 2};
    request.mayCrop = true;
    request.coverSheet.userName = "A. Clerk";
    for (const bool full : {false, true})
        for (const int16_t scale : {FitToPage, FullSize, CurrentView})
            for (const Raster& given : {picture(850, 1300, 100, 100), picture(1728, 1100, 204, 98)}) {
                client.given = given;
                request.scale = scale;
                request.hasCoverSheet = full;
                request.caption = full ? "Contract 42" : "";
                request.pageNumbers = full ? std::vector<std::string>{"Page 1 of 2", "Page 2 of 2"}
                                           : std::vector<std::string>();
                ASSERT_TRUE(print().completed);
                std::vector<std::string> printed = script.record;
                std::erase_if(printed, [](const std::string& line) {
                    return line.rfind("text ", 0) != 0 && line.rfind("bits ", 0) != 0;
                });
                script.record.clear();
                PrintPreview preview(errors, box, printers, client, request);
                ASSERT_EQ(preview.sheetCount(), full ? 3 : 2);
                for (int32_t sheet = 0; sheet < preview.sheetCount(); ++sheet)
                    EXPECT_EQ(preview.draw(sheet, std::make_unique<scripted::PrinterDevice>(printers.script)),
                              0);
                EXPECT_EQ(script.record, printed);
            }
    PrintPreview preview(errors, box, printers, client, request);
    EXPECT_EQ(preview.sheetText(1), "Sheet 2 of 3");
}

// While the preview waits for one page, the user asks for the next.
TEST_F(PagePrinterTest, ThePreviewIsOvertaken) {
    request.pages = {1, 2};
    PrintPreview preview(errors, box, printers, client, request);
    client.onPage = [&](int16_t) {
        client.onPage = nullptr;
        EXPECT_EQ(preview.draw(1, std::make_unique<scripted::PrinterDevice>(printers.script)), 0);
    };
    EXPECT_EQ(preview.draw(0, std::make_unique<scripted::PrinterDevice>(printers.script)), 0);
    EXPECT_EQ(script.record.size(), 2U);
    EXPECT_EQ(script.openDevices, 1) << "the printer that tells the metrics";
}

} // namespace
} // namespace pixmo
