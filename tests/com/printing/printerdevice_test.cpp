#include "core/printing/pageprinter.h"
#include "faces/com/printing/previewdevice.h"
#include "faces/com/printing/printerdevice.h"
#include "faces/com/printing/printers.h"
#include "faces/scripted/scriptedports.h"
#include "tests/com/face/facehostwindow.h"
#include "tests/com/printing/testprinter.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo::com {
namespace {

/// White but for a black frame, a tenth of its width from the edges.
Raster framedPage(PixelFormat format) {
    Raster page = makeRaster(format, 850, 1100);
    page.xResolution = page.yResolution = 100;
    std::ranges::fill(page.pixels, format == PixelFormat::Bilevel ? uint8_t{0} : uint8_t{255});
    const auto ink = [&](int32_t x, int32_t y) {
        auto row = page.row(y);
        const auto at = static_cast<size_t>(x);
        if (format == PixelFormat::Bilevel)
            row[at / 8] = static_cast<uint8_t>(row[at / 8] | 0x80U >> at % 8);
        else
            std::fill_n(row.begin() + x * 3, 3, uint8_t{0});
    };
    for (int32_t y = 85; y < 1015; ++y)
        for (int32_t x = 85; x < 765; ++x)
            if (x < 95 || x >= 755 || y < 95 || y >= 1005)
                ink(x, y);
    return page;
}

class Pages : public PrintClient {
public:
    Raster printedPage(int16_t page) override {
        return framedPage(page == 1 ? PixelFormat::Bilevel : PixelFormat::Rgb);
    }
    void printStatus(const std::string&, int32_t) override {}
    void printProgress(const std::string&) override {}
    bool printGoesOn() override { return goesOn; }

    bool goesOn = true;
};

class ComPrinting : public testing::Test {
protected:
    ComPrinting() { test_printer::takeJob(); }

    PrintRequest request(std::vector<int16_t> pages) const {
        PrintRequest request;
        request.documentName = "Deed 1001";
        request.pages = std::move(pages);
        request.caption = "Caption \u00E9\u03B1";
        return request;
    }

    std::shared_ptr<FaceHostWindow> host = FaceHostWindow::create({200, 200});
    std::shared_ptr<FaceLink> link = std::make_shared<FaceLink>(*host);
    Printers printers{link};
    scripted::MessageBox box;
    scripted::Clock clock;
    cLogEvent log{clock};
    cErrObject errors;
    Pages client;
};

size_t countOf(const std::string& text, const std::string& part) {
    size_t count = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

TEST_F(ComPrinting, ThePrinterTellsItsMeasures) {
    EXPECT_THAT(printers.names(), testing::Contains(test_printer::Name));
    EXPECT_EQ(printers.currentName(), test_printer::Name);
    const auto device = printers.open();
    ASSERT_TRUE(device);
    const auto caps = [&](DeviceCap index) { return device->GetDeviceCaps(index); };
    EXPECT_EQ(caps(DeviceCap::LogPixelsX), 600);
    EXPECT_NEAR(caps(DeviceCap::PhysicalWidth), 4958, 2);
    EXPECT_NEAR(caps(DeviceCap::PhysicalHeight), 7016, 2);
    EXPECT_NEAR(caps(DeviceCap::PhysicalOffsetX), 150, 1);
    EXPECT_NEAR(caps(DeviceCap::HorzRes), 4658, 2);
    EXPECT_NEAR(caps(DeviceCap::HorzSize), 197, 1);
    EXPECT_TRUE(device->setPaperSize(1));
    EXPECT_NEAR(caps(DeviceCap::PhysicalWidth), 5100, 2);
    EXPECT_FALSE(device->setPaperSize(66)) << "A2 is not in it";
    EXPECT_NEAR(caps(DeviceCap::PhysicalHeight), 6600, 2);
    EXPECT_TRUE(device->setCopies(3));
    printers.setCurrent("No such printer");
    EXPECT_FALSE(printers.open());
}

TEST_F(ComPrinting, AJobIsWhatWasAskedFor) {
    cPrinter printer(printers);
    PrintRequest asked = request({1, 2});
    asked.copies = 2;
    const PrintResult result = PagePrinter(errors, box, printer).imgPrintDoc(asked, client);
    EXPECT_TRUE(result.completed);
    EXPECT_EQ(result.pagesQueued, 2);
    const std::string job = test_printer::takeJob();
    // The picture of 1 bit goes as 1 bit, the one of colours with all of them.
    for (const char* part :
         {"%!PS-Adobe", "%%Title: Deed 1001", "copies=2", "/BitsPerComponent 1\n", "/BitsPerComponent 8\n"})
        EXPECT_EQ(countOf(job, part), 1U) << part;
    EXPECT_EQ(countOf(job, "%%Page:"), 2U);
    EXPECT_TRUE(box.questions.empty());

    asked.hasCoverSheet = true;
    asked.coverSheet.userName = "A. User";
    EXPECT_TRUE(PagePrinter(errors, box, printer).imgPrintDoc(asked, client).completed);
    EXPECT_EQ(countOf(test_printer::takeJob(), "%%Page:"), 5U) << "one cover sheet before all copies";
}

TEST_F(ComPrinting, AnAbortedJobIsNotPrinted) {
    const auto device = printers.open();
    ASSERT_GT(device->StartDoc("given up"), 0);
    ASSERT_GT(device->StartPage(), 0);
    device->AbortDoc();
    EXPECT_EQ(test_printer::takeJob(), "");
    EXPECT_LE(device->EndPage(), 0);
}

TEST_F(ComPrinting, AClosedDeviceGivesItsJobUp) {
    auto device = printers.open();
    ASSERT_GT(device->StartDoc("forgotten"), 0);
    ASSERT_GT(device->StartPage(), 0);
    device.reset();
    EXPECT_EQ(test_printer::takeJob(), "");
}

TEST_F(ComPrinting, TextIsMeasuredInPixelsOfThePrinter) {
    const auto device = printers.open();
    LogFont font;
    font.lfFaceName = "Arial";
    font.lfHeight = -600; // an inch
    const int32_t handle = device->CreateFontIndirect(font);
    ASSERT_NE(handle, 0);
    device->SelectObject(handle);
    const Size one = device->GetTextExtentPoint32("M");
    const Size four = device->GetTextExtentPoint32("MMMM");
    EXPECT_NEAR(one.width, 500, 20);
    EXPECT_NEAR(four.width, 4 * one.width, 4);
    EXPECT_GE(one.height, 600);
    EXPECT_EQ(device->GetTextExtentPoint32("\u00E9\u00E9").width,
              2 * device->GetTextExtentPoint32("\u00E9").width)
        << "characters are counted, not bytes";
    device->DeleteObject(handle);
}

/// Whether the preview's pixel is dark.
bool isInk(const PixelBuffer& pixels, int32_t x, int32_t y) {
    return (pixels.surface().row(y)[static_cast<size_t>(x)] & 0xFFU) < 128;
}

TEST_F(ComPrinting, ThePreviewShowsWhereThingsAre) {
    const auto printer = printers.open();
    const auto sheet = std::make_shared<PixelBuffer>();
    ASSERT_TRUE(sheet->resize({595, 842}));
    const PixelBuffer& pixels = *sheet;
    PreviewDevice device(*printer, sheet);
    // A point of the preview is a 72nd of an inch.
    const Raster page = framedPage(PixelFormat::Bilevel);
    EXPECT_TRUE(device.drawRaster(page, {0, 0, 850, 1100}, {0, 0, 850 * 5, 1100 * 5}));
    const int32_t frame = 18 + 90 * 5 * 72 / 600;
    EXPECT_TRUE(isInk(pixels, frame, 300));
    EXPECT_FALSE(isInk(pixels, frame + 8, 300));
    EXPECT_FALSE(isInk(pixels, frame - 8, 300));

    LogFont font;
    font.lfFaceName = "Arial";
    font.lfHeight = -300;
    device.SelectObject(device.CreateFontIndirect(font));
    const std::string text = "MMMM";
    EXPECT_TRUE(device.TextOut(1200, 2400, text));
    const int32_t left = 18 + 1200 * 72 / 600;
    const int32_t width = device.GetTextExtentPoint32(text).width * 72 / 600;
    int32_t first = 0;
    int32_t last = 0;
    for (int32_t x = left - 20; x < left + width + 20; ++x)
        for (int32_t y = 18 + 2400 * 72 / 600; y < 18 + 2400 * 72 / 600 + 40; ++y)
            if (isInk(pixels, x, y)) {
                first = first == 0 ? x : first;
                last = x;
            }
    EXPECT_NEAR(first, left, 4);
    EXPECT_NEAR(last, left + width, 5);
}

} // namespace
} // namespace pixmo::com
