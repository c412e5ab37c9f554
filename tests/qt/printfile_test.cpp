#include "tests/qt/engineprocess.h"
#include "tests/qt/pdffile.h"
#include "tests/qt/waiting.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo::qt {
namespace {

using testing::HasSubstr;

/// The viewer run to print into a file.
class PrintTo : public testing::Test {
protected:
    int run(const QString& more) {
        QProcess process;
        QStringList arguments = {QStringLiteral("--engine"), engine.address(), QStringLiteral("--print-to"),
                                 path};
        process.start(QStringLiteral(PIXMO_VIEWER_PROGRAM), arguments + QProcess::splitCommand(more));
        EXPECT_TRUE(waitFor([&] { return process.state() == QProcess::NotRunning; })) << "it does not end";
        errors = process.readAllStandardError().toStdString();
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    EngineProcess engine;
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("job.pdf"));
    const PdfFile file{path};
    std::string errors;
};

TEST_F(PrintTo, PrintsPagesWithCoverAndCaption) {
    ASSERT_EQ(run(QStringLiteral("--doc 1001 --pages 5-2,9 --cover --caption \"Copy for the court\"")), 0)
        << errors;
    EXPECT_EQ(file.pageCount(), 6);
    const std::string text = file.text();
    EXPECT_THAT(text, HasSubstr("PagesPrinted: 5"));
    EXPECT_THAT(text, HasSubstr("Copy for the court"));
    EXPECT_THAT(text, HasSubstr("Page 5 of 5"));
    EXPECT_EQ(engine.requests("GP"), 5);
    ASSERT_EQ(run(QStringLiteral("--doc 1001 --pages 11-20 --scale full")), 0) << errors;
    EXPECT_EQ(file.pageCount(), 2);
    // A page of 2550 pixels at 300 to the inch.
    EXPECT_THAT(file.pictures().first().toStdString(), HasSubstr("  300   300 "));
}

TEST_F(PrintTo, TheFileIsSmall) {
    ASSERT_EQ(run(QStringLiteral("--doc 1001")), 0) << errors;
    qint64 pages = 0;
    for (const QFileInfo& page :
         QDir(QStringLiteral(PIXMO_SAMPLES "/1001")).entryInfoList({QStringLiteral("*.tif*")}))
        pages += page.size();
    ASSERT_GT(pages, 0);
    EXPECT_LT(QFile(path).size(), pages + 60'000) << "fonts and text beside the pages";
}

TEST_F(PrintTo, SaysWhyThereIsNoFile) {
    struct {
        const char* fault;
        const char* arguments;
        int exitCode;
        const char* reason;
    } const cases[] = {
        {"", "--doc 1001 --pages 40", 1, "none of them wanted"},
        {"", "--doc 77", 1, ""},
        {"http500:GP", "--doc 1001", 1, "failed to load"},
        {"stall:GP", "--doc 1001 --timeout 1", 1, "within 1 second"},
        {"", "--doc 1001 --pages 2-", 2, "--pages"},
        {"", "--doc 1001 --scale half", 2, "--scale"},
        {"", "", 2, "--doc"},
    };
    for (const auto& failing : cases) {
        SCOPED_TRACE(std::string(failing.fault) + failing.arguments);
        engine.setFaults(failing.fault);
        EXPECT_EQ(run(QLatin1String(failing.arguments)), failing.exitCode);
        EXPECT_THAT(errors, HasSubstr(failing.reason));
        EXPECT_TRUE(QDir(folder.path()).isEmpty());
    }
}

} // namespace
} // namespace pixmo::qt
