#include "tests/qt/cupsqueue.h"

#include "core/printing/pageprinter.h"
#include "faces/qt/printers.h"
#include "faces/scripted/scriptedports.h"
#include "tests/qt/pdffile.h"
#include "tests/qt/waiting.h"

#include <QFile>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo::qt {
namespace {

class Client : public PrintClient {
public:
    Raster printedPage(int16_t) override {
        Raster raster = makeRaster(PixelFormat::Bilevel, 1700, 2200);
        raster.xResolution = raster.yResolution = 200;
        return raster;
    }
    void printStatus(const std::string&, int32_t) override {}
    void printProgress(const std::string&) override {}
    bool printGoesOn() override { return true; }
};

TEST(PrintSystem, AJobGoesThroughAQueueAndComesOut) {
    const CupsQueue queue;
    if (!queue.isReady())
        GTEST_SKIP() << "no print system can be started here";
    Printers printers(std::make_shared<WidgetLink>());
    ASSERT_THAT(printers.names(), testing::ElementsAre(CupsQueue::Name, "PDF file"));
    printers.setCurrent(CupsQueue::Name);
    scripted::MessageBox box;
    cErrObject errors(&box);
    cPrinter printer(printers);
    EXPECT_EQ(printer.DeviceName(), CupsQueue::Name);
    PrintRequest request;
    request.documentName = "Document 7";
    request.pages = {1, 2, 3};
    request.pageNumbers = {"Page 1 of 3", "Page 2 of 3", "Page 3 of 3"};
    Client client;
    const PrintResult result = PagePrinter(errors, box, printer).imgPrintDoc(request, client);
    EXPECT_TRUE(result.completed);
    EXPECT_EQ(result.pagesQueued, 3);
    ASSERT_TRUE(waitFor([&] { return QFile::exists(queue.job()); })) << "nothing came out";
    const PdfFile file(queue.job());
    EXPECT_EQ(file.pageCount(), 3);
    EXPECT_THAT(file.text(), testing::HasSubstr("Page 3 of 3"));
    EXPECT_THAT(queue.options().toStdString(), testing::HasSubstr("copies=1"));
}

} // namespace
} // namespace pixmo::qt
