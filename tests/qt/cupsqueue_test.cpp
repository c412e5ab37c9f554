#include "tests/qt/cupsqueue.h"

#include "tests/qt/pdffile.h"
#include "tests/qt/printfixture.h"

#include <QDir>
#include <QFile>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo::qt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using namespace paper;

/// Prints letter pages of 200 by 200 on a real queue.
class PrintSystem : public PrintFixture {
protected:
    static void SetUpTestSuite() { queue = new CupsQueue; }
    static void TearDownTestSuite() { delete queue; }

    void SetUp() override {
        ASSERT_EQ(queue->problem(), "");
        ASSERT_TRUE(queue->add());
        queue->forgetJob();
        printers.setCurrent(CupsQueue::Name);
        client.given = makeRaster(PixelFormat::Bilevel, 1700, 2200);
        client.given.xResolution = client.given.yResolution = 200;
        request.documentName = "Urkunde \u00FC";
        request.pages = {1, 2, 3};
    }
    /// Number, title, copies and options of the job that comes out.
    static QStringList job() {
        QStringList parts = QString::fromStdString(queue->options()).split(QLatin1Char('|'));
        queue->forgetJob();
        return parts;
    }

    static CupsQueue* queue;
    const PdfFile file{queue->job()};
};

CupsQueue* PrintSystem::queue = nullptr;

TEST_F(PrintSystem, AJobGoesThroughAQueueAndComesOut) {
    EXPECT_THAT(printers.names(), ElementsAre(CupsQueue::Name, "PDF file"));
    request.pageNumbers = {"Page 1 of 3", "Page 2 of 3", "Page 3 of 3"};
    const PrintResult result = print();
    EXPECT_THAT(result.errors, ElementsAre());
    EXPECT_EQ(result.pagesQueued, 3);
    EXPECT_THAT(queue->options(), HasSubstr("|" + request.documentName + "|1|"));
    EXPECT_EQ(file.pageCount(), 3);
    EXPECT_THAT(file.text(), HasSubstr("Page 3 of 3"));
    ASSERT_EQ(file.pictures().size(), 3);
    EXPECT_THAT(file.pictures().first().toStdString(), HasSubstr(" 1   1  ccitt "));
    EXPECT_THAT(QDir::temp().entryList({QStringLiteral("pixmo-*.pdf")}), ElementsAre());
}

TEST_F(PrintSystem, CopiesAndPaper) {
    struct {
        const char* what;
        int paper, copies;
        bool cover;
        const char* jobCopies;
        const char* option;
        int pages;
        QSize size; ///< at 100 dots an inch
    } const cases[] = {
        {"the printer's own paper", 0, 1, false, "1", " media=Letter ", 3, {850, 1100}},
        {"A4, copied by the queue", A4, 4, false, "4", " media=A4 ", 3, {827, 1170}},
        {"one cover sheet a job", Letter, 2, true, "1", " media=Letter ", 7, {850, 1100}},
        {"A3", A3, 999, false, "999", " media=A3 ", 3, {1170, 1655}},
        {"paper that it has not", Legal, 1, false, "1", " media=Letter ", 3, {850, 1100}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        client.log.clear();
        request.paperSize = each.paper;
        request.copies = each.copies;
        request.hasCoverSheet = each.cover;
        ASSERT_EQ(print().pagesQueued, 3);
        const std::string options = queue->options();
        EXPECT_EQ(file.pageCount(), each.pages);
        const QSize size = file.page(1).size();
        EXPECT_NEAR(size.width(), each.size.width(), 1);
        EXPECT_NEAR(size.height(), each.size.height(), 1);
        const QStringList came = job();
        ASSERT_EQ(came.size(), 4) << options;
        EXPECT_EQ(came[2].toStdString(), each.jobCopies);
        EXPECT_THAT((" " + came[3] + " ").toStdString(), HasSubstr(each.option));
        const std::string lacks = "The printer 'pixmo-test' has no paper of size 5 and keeps its own.";
        EXPECT_EQ(std::count(client.log.begin(), client.log.end(), lacks), each.paper == Legal ? 1 : 0);
    }
}

TEST_F(PrintSystem, ThePrintableAreaIsTheQueues) {
    cPrinter printer(printers);
    printer.LoadDefaultPrinterDC();
    EXPECT_EQ(printer.PhysicalOffset_X(), printer.LogPixels_X() / 4);
    EXPECT_EQ(printer.PhysicalOffset_Y(), printer.LogPixels_Y() / 2);
    EXPECT_EQ(printer.Horz_Res(), 8 * printer.LogPixels_X());
    EXPECT_EQ(printer.Vert_Res(), 10 * printer.LogPixels_Y());
    EXPECT_EQ(printer.Physical_Height(), 11 * printer.LogPixels_Y());
}

TEST_F(PrintSystem, ACancelledJobNeverReachesTheQueue) {
    ASSERT_EQ(print().pagesQueued, 3);
    const int before = job().first().toInt();
    client.steps = 2;
    const PrintResult result = print();
    EXPECT_FALSE(result.completed);
    EXPECT_THAT(result.errors, ElementsAre());
    client.steps = 100;
    ASSERT_EQ(print().pagesQueued, 3);
    EXPECT_EQ(job().first().toInt(), before + 1);
    EXPECT_THAT(QDir::temp().entryList({QStringLiteral("pixmo-*.pdf")}), ElementsAre());
}

TEST_F(PrintSystem, AQueueThatVanishesOrRefusesIsReported) {
    struct {
        const char* what;
        std::function<void()> happens;
        bool beforeTheJob;
        const char* error;
    } const cases[] = {
        {"gone before", [] { queue->remove(); }, true, "Printer error"},
        {"gone meanwhile", [] { queue->remove(); }, false, "Printer error: "},
        {"refuses", [] { queue->refuseJobs(); }, false, "Printer error: "},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        ASSERT_TRUE(queue->add());
        if (each.beforeTheJob)
            each.happens();
        client.onPage = [&](int16_t page) {
            if (page == 2)
                each.happens();
        };
        const PrintResult result = print();
        EXPECT_FALSE(result.completed);
        EXPECT_EQ(result.pagesQueued, 0);
        EXPECT_THAT(result.errors, ElementsAre(testing::StartsWith(each.error)));
        EXPECT_FALSE(QFile::exists(queue->job()));
    }
}

} // namespace
} // namespace pixmo::qt
