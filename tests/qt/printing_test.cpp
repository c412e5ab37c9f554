#include "core/printing/dlgprint.h"
#include "core/printing/printpreview.h"
#include "faces/qt/printing/previewdevice.h"
#include "tests/qt/pdffile.h"
#include "tests/qt/printfixture.h"

#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>

namespace pixmo::qt {
namespace {

using paper::A4;
using paper::Letter;
using testing::HasSubstr;

/// A 1-bit picture with a frame along its edges, three lines thick, so that its place can be seen.
Raster framed(int32_t width, int32_t height, double xResolution, double yResolution) {
    Raster raster = makeRaster(PixelFormat::Bilevel, width, height);
    raster.xResolution = xResolution;
    raster.yResolution = yResolution;
    const auto ink = [&](int32_t x, int32_t y) {
        raster.row(y)[static_cast<size_t>(x / 8)] |= static_cast<uint8_t>(0x80 >> (x % 8));
    };
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x)
            if (x < 6 || y < 6 || x >= width - 6 || y >= height - 6)
                ink(x, y);
    return raster;
}

class PrintedFile : public PrintFixture {
protected:
    PrintedFile() {
        client.given = framed(1700, 2200, 200, 200);
        request.pages = {1};
        request.paperSize = A4;
        printers.setFile(path);
    }
    static QRectF inches(const QRect& pixels) {
        return {pixels.x() / 100.0, pixels.y() / 100.0, pixels.width() / 100.0, pixels.height() / 100.0};
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("job.pdf"));
    const PdfFile file{path};
};

// A quarter of an inch at each edge of the paper is left free.
TEST_F(PrintedFile, PicturesLieWhereTheyShould) {
    struct {
        const char* what;
        Raster given;
        int16_t scale;
        int paper;
        QRectF inches;
    } const cases[] = {
        {"fitted to A4", framed(1700, 2200, 200, 200), FitToPage, A4, {0.25, 0.81, 7.77, 10.05}},
        {"fitted to Letter", framed(1700, 2200, 200, 200), FitToPage, Letter, {0.25, 0.32, 8.0, 10.35}},
        {"landscape, turned", framed(2200, 1700, 200, 200), FitToPage, Letter, {0.25, 0.32, 8.0, 10.35}},
        {"a fax of 204 by 98, full size", framed(816, 490, 204, 98), FullSize, Letter, {2.25, 3, 4, 5}},
        {"a fax of 204 by 98, fitted", framed(816, 490, 204, 98), FitToPage, Letter, {0.25, 0.5, 8, 10}},
        {"small, full size", framed(600, 300, 300, 300), FullSize, A4, {3.13, 5.35, 2, 1}},
        {"a view", framed(1000, 1000, 200, 200), CurrentView, Letter, {0.25, 1.5, 8, 8}},
        {"too large, cut on both sides", framed(2000, 2600, 200, 200), FullSize, Letter, {}},
        {"a landscape view", framed(2200, 1100, 200, 200), CurrentView, Letter, {0.25, 3.5, 8, 4}},
    };
    request.mayCrop = true;
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        client.given = each.given;
        request.scale = each.scale;
        request.paperSize = each.paper;
        ASSERT_EQ(print().pagesQueued, 1);
        const QImage page = file.page(1);
        EXPECT_EQ(page.size(), each.paper == A4 ? QSize(827, 1170) : QSize(850, 1100));
        const QRectF ink = inches(inkBox(page));
        EXPECT_NEAR(ink.left(), each.inches.left(), 0.015);
        EXPECT_NEAR(ink.top(), each.inches.top(), 0.015);
        EXPECT_NEAR(ink.width(), each.inches.width(), 0.025);
        EXPECT_NEAR(ink.height(), each.inches.height(), 0.025);
    }
}

TEST_F(PrintedFile, PaperOfEachCode) {
    struct {
        int32_t code;
        double width, height; ///< inches; 0 where there is no such paper
    } const cases[] = {
        {1, 8.5, 11},      {2, 8.5, 11},     {3, 11, 17},        {4, 17, 11},        {5, 8.5, 14},
        {8, 11.69, 16.54}, {9, 8.27, 11.69}, {12, 10.12, 14.33}, {14, 8.5, 13},      {16, 10, 14},
        {17, 11, 17},      {18, 8.5, 11},    {20, 4.125, 9.5},   {24, 17, 22},       {25, 22, 34},
        {26, 34, 44},      {27, 4.33, 8.66}, {28, 6.38, 9.02},   {29, 12.76, 18.03}, {35, 6.93, 4.92},
        {39, 14.875, 11},  {41, 8.5, 13},    {256, 0, 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.code);
        const auto device = printers.open();
        ASSERT_NE(device, nullptr);
        ASSERT_EQ(device->setPaperSize(each.code), each.width > 0);
        const double dots = device->GetDeviceCaps(DeviceCap::LogPixelsX);
        if (each.width > 0) {
            EXPECT_NEAR(device->GetDeviceCaps(DeviceCap::PhysicalWidth) / dots, each.width, 0.04);
            EXPECT_NEAR(device->GetDeviceCaps(DeviceCap::PhysicalHeight) / dots, each.height, 0.04);
        }
    }
}

TEST_F(PrintedFile, CaptionAndNumberStandOutsideThePicture) {
    client.given = framed(1700, 2200, 200, 200);
    request.paperSize = Letter;
    request.caption = "Deed of Marrowby";
    request.captionFontSize = 14;
    request.pageNumbers = {"Page 3 of 9"};
    ASSERT_EQ(print().pagesQueued, 1);
    EXPECT_THAT(file.text(), HasSubstr("Deed of Marrowby"));
    EXPECT_THAT(file.text(), HasSubstr("Page 3 of 9"));
    const QImage page = file.page(1);
    const QRect top = inkBox(page.copy(0, 0, 850, 50));
    const QRect bottom = inkBox(page.copy(0, 1050, 850, 50));
    EXPECT_NEAR(top.center().x(), 425, 8);
    EXPECT_NEAR(bottom.center().x(), 425, 8);
    EXPECT_GE(bottom.top() + 1050, 1050);
    EXPECT_LE(bottom.bottom() + 1050, 1076);
    // Above and below the picture there is a band with nothing in it.
    const QRect picture = inkBox(page.copy(0, 50, 850, 1000)).translated(0, 50);
    EXPECT_GT(picture.top(), top.bottom() + 4);
    EXPECT_LT(picture.bottom(), bottom.top() + 1050 - 4);
}

TEST_F(PrintedFile, LongCaptionsFillThePrintableWidth) {
    for (int word = 1; word <= 60; ++word)
        request.caption += "word" + std::to_string(word) + " ";
    ASSERT_EQ(print().pagesQueued, 1);
    EXPECT_THAT(file.text(), HasSubstr("..."));
    const QRect caption = inkBox(file.page(1).copy(0, 0, 827, 45));
    EXPECT_GE(caption.left(), 24);
    EXPECT_LE(caption.right(), 827 - 24);
    EXPECT_GT(caption.width(), 740);
}

TEST_F(PrintedFile, TheCoverSheetHoldsItsRows) {
    request.pages = {1, 2};
    request.hasCoverSheet = true;
    request.coverSheet = {"A. Clerk", "5/17/2026", "WS-7", "Deed copies", "2.50"};
    ASSERT_EQ(print().pagesQueued, 2);
    EXPECT_EQ(file.pageCount(), 3);
    const std::string text = file.text();
    size_t at = 0;
    for (const char* expected :
         {"Print Job Report for User: A. Clerk", "Date: 5/17/2026", "Printed from: WS-7", "PagesPrinted: 2",
          "Deed copies", "......", "2", "Fee", "......", "2.50", "\f"}) {
        at = text.find(expected, at);
        ASSERT_NE(at, std::string::npos) << expected << "\n" << text;
    }
}

TEST_F(PrintedFile, EachPageKeepsItsPictureAndItsDepth) {
    Raster red = makeRaster(PixelFormat::Rgb, 1700, 2200);
    for (size_t at = 0; at < red.pixels.size(); at += 3)
        red.pixels[at] = 200;
    red.xResolution = red.yResolution = 200;
    Raster blank = framed(1700, 2200, 200, 200);
    std::fill(blank.pixels.begin(), blank.pixels.end(), uint8_t{0});
    const Raster given[] = {framed(1700, 2200, 200, 200), red, blank};
    client.onPage = [&](int16_t page) { client.given = given[page - 1]; };
    request.pages = {1, 2, 3, 1};
    request.copies = 2;
    ASSERT_EQ(print().pagesQueued, 4);
    EXPECT_EQ(file.pageCount(), 8);
    std::string found;
    for (const QString& picture : file.pictures())
        found += picture.simplified().section(QLatin1Char(' '), 5, 8).toStdString() + "; ";
    const std::string copy = "gray 1 1 ccitt; rgb 3 8 jpeg; gray 1 1 ccitt; gray 1 1 ccitt; ";
    EXPECT_EQ(found, copy + copy);
    for (const int page : {1, 4, 8})
        EXPECT_FALSE(inkBox(file.page(page)).isNull()) << page;
    EXPECT_NEAR(qGray(file.page(2).pixel(413, 585)), qGray(200, 0, 0), 10);
    EXPECT_TRUE(inkBox(file.page(7)).isNull());
}

TEST_F(PrintedFile, NothingIsLeftOfAFileThatCannotBe) {
    const QString device = folder.filePath(QStringLiteral("device"));
    ASSERT_EQ(mkfifo(QFile::encodeName(device).constData(), 0600), 0);
    const std::pair<QString, const char*> cases[] = {
        {QStringLiteral("/nowhere/job.pdf"), "Printer error: No such file or directory"},
        {folder.path(), "Printer error: Not a file"},
        {device, "Printer error: Not a file"},
    };
    for (const auto& [name, error] : cases) {
        printers.setFile(name);
        const PrintResult result = print();
        EXPECT_FALSE(result.completed);
        EXPECT_THAT(result.errors, testing::ElementsAre(error));
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::System),
                  QStringList(QStringLiteral("device")));
    }
}

/// Ink by chance, in single pixels and in runs.
Raster sprinkled(int32_t width, int32_t height, double resolution) {
    Raster raster = makeRaster(PixelFormat::Bilevel, width, height);
    raster.xResolution = raster.yResolution = resolution;
    std::minstd_rand chance;
    for (uint8_t& bits : raster.pixels) {
        const auto half = chance();
        bits = static_cast<uint8_t>(half & chance());
    }
    return raster;
}

/// As the preview shows it; null when it cannot be drawn.
QImage sheetOf(PrintPreview& preview, int32_t number, Size size) {
    const auto sheet = PreviewDevice::makeSheet(size);
    const bool drawn = preview.draw(number, std::make_unique<PreviewDevice>(*preview.printer(), sheet)) == 0;
    return drawn ? *sheet : QImage();
}

// Where no pixel has to be made of several, page, preview and print are the same to the bit, though one
// program draws the preview and another one the print.
TEST_F(PrintedFile, InItsOwnResolutionAPageIsTheSameInPreviewAndPrint) {
    client.given = sprinkled(800, 1050, 100);
    request.scale = FullSize;
    request.paperSize = Letter;
    ASSERT_EQ(print().pagesQueued, 1);
    PrintPreview preview(errors, box, printers, client, request);
    const QImage shown = sheetOf(preview, 0, {850, 1100}).convertToFormat(QImage::Format_Grayscale8);
    const QImage printed = file.pageToTheBit(1, 100);
    ASSERT_EQ(shown.size(), QSize(850, 1100));
    EXPECT_EQ(shown, printed);
    int wrong = 0;
    for (int y = 0; y < client.given.height; ++y)
        for (int x = 0; x < client.given.width; ++x) {
            const bool ink = (client.given.row(y)[static_cast<size_t>(x / 8)] & (0x80 >> (x % 8))) != 0;
            wrong += qGray(shown.pixel(25 + x, 25 + y)) != (ink ? 0 : 255);
        }
    EXPECT_EQ(wrong, 0);
}

/// Shares of pixels that differ more than a little between preview and print.
double difference(const QImage& one, const QImage& other) {
    int differing = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            differing += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 96 ? 1 : 0;
    return differing / static_cast<double>(one.width() * one.height());
}

TEST_F(PrintedFile, ThePreviewShowsWhatIsPrinted) {
    client.given = framed(1700, 1500, 200, 200);
    request.pages = {1, 2};
    request.paperSize = Letter;
    request.hasCoverSheet = true;
    request.coverSheet = {"A. Clerk", "5/17/2026", "WS-7", "Deed copies", "2.50"};
    request.caption = "Deed of Marrowby";
    request.pageNumbers = {"Page 1 of 2", "Page 2 of 2"};
    ASSERT_EQ(print().pagesQueued, 2);
    PrintPreview preview(errors, box, printers, client, request);
    ASSERT_EQ(preview.sheetCount(), 3);
    for (int sheet = 0; sheet < 3; ++sheet) {
        SCOPED_TRACE(sheet);
        const QImage shown = sheetOf(preview, sheet, {850, 1100});
        const QImage printed = file.pageOfHeight(sheet + 1, 1100);
        ASSERT_EQ(shown.size(), printed.size());
        const QRect shownInk = inkBox(shown);
        const QRect printedInk = inkBox(printed);
        EXPECT_LE((shownInk.topLeft() - printedInk.topLeft()).manhattanLength(), 2);
        EXPECT_LE((shownInk.bottomRight() - printedInk.bottomRight()).manhattanLength(), 2);
        EXPECT_LT(difference(shown, printed), 0.005);
    }
}

} // namespace
} // namespace pixmo::qt
