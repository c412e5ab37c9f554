#include "apps/pixmo/mainwindow.h"
#include "core/control/commandtable.h"
#include "core/control/propertytable.h"
#include "tests/qt/engineprocess.h"
#include "tests/qt/waiting.h"

#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QMenuBar>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo::qt {
namespace {

using testing::HasSubstr;

/// How a run of the viewer ended.
struct Outcome {
    int exitCode = -1;
    std::string output;
    std::string errors;
};

Outcome runViewer(const QString& arguments) {
    QProcess process;
    process.start(QStringLiteral(PIXMO_VIEWER_PROGRAM), QProcess::splitCommand(arguments));
    EXPECT_TRUE(waitFor([&] { return process.state() == QProcess::NotRunning; })) << "it does not end";
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput().toStdString(), process.readAllStandardError().toStdString()};
}

TEST(ViewerProgram, RefusesBadArguments) {
    for (const char* arguments :
         {"--engine nonsense", "--engine ftp://host/e --doc 1", "--doc 1", "--doc 0",
          "--doc x --engine http://h/e", "--page 0", "--page 40000", "--size 800", "--size 0x5",
          "--size 9999999x1", "--timeout 0", "--enc-bytes -2", "--delimiter ab", "--screenshot x.png",
          "--unknown", "stray", "--log-level 9", "--key="}) {
        const Outcome run = runViewer(QString::fromLatin1(arguments));
        EXPECT_EQ(run.exitCode, 2) << arguments;
        EXPECT_THAT(run.errors, HasSubstr("pixmo: ")) << arguments;
    }
}

TEST(ViewerProgram, TellsItsOptionsAndVersion) {
    const Outcome help = runViewer(QStringLiteral("--help"));
    EXPECT_EQ(help.exitCode, 0);
    for (const char* option : {"--engine", "--doc", "--page", "--delimiter", "--key", "--enc-bytes", "--log",
                               "--log-level", "--size", "--screenshot", "--timeout", "--version"})
        EXPECT_THAT(help.output, HasSubstr(option));
    EXPECT_THAT(runViewer(QStringLiteral("--version")).output, testing::StartsWith("pixmo "));
}

QByteArray documentation(const char* name) {
    QFile file(QLatin1String(PIXMO_DOCS "/") + QLatin1String(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll();
}

TEST(Documentation, NamesEveryPropertyAndCommand) {
    const QByteArray text = documentation("hosting-qt.md");
    const auto named = [&](std::string_view name) {
        return text.contains(("`" + std::string(name) + "`").c_str());
    };
    for (const PropertyRow& row : propertyTable())
        EXPECT_TRUE(named(row.name)) << row.name;
    for (const CommandRow& row : commandTable())
        EXPECT_TRUE(named(row.key)) << row.key;
}

// What has neither a button nor an item in a popup menu is for the window's menus to offer; ZOOM is for
// hosts.
TEST(ViewerWindow, OffersEveryCommandThatTheViewDoesNot) {
    const viewer::MainWindow window{viewer::Options()};
    for (const CommandRow& row : commandTable()) {
        const QString key = QString::fromUtf8(row.key.data(), static_cast<qsizetype>(row.key.size()));
        const bool inView =
            row.button.group >= 0 || row.menu.menu != PopupMenu::None || row.keys.front().keyCode != 0;
        EXPECT_TRUE(inView || row.key == "ZOOM" || window.menuBar()->findChild<QAction*>(key)) << row.key;
    }
}

TEST(Documentation, ShowsTheProgramThatIsTested) {
    EXPECT_TRUE(documentation("hosting-qt.md")
                    .contains("```cpp\n" + documentation("examples/embedding.cpp") + "```"));
}

TEST(EmbeddingExample, LoadsThePage) {
    const EngineProcess engine;
    QProcess example;
    example.start(QStringLiteral(PIXMO_EXAMPLE_PROGRAM), {engine.address(), QStringLiteral("1002")});
    EXPECT_TRUE(waitFor([&] { return engine.requests("GP") == 1; }));
    EXPECT_EQ(example.state(), QProcess::Running);
    example.terminate();
    EXPECT_TRUE(waitFor([&] { return example.state() == QProcess::NotRunning; }));
}

class Screenshot : public testing::Test {
protected:
    Outcome take(const QString& more) const {
        return runViewer(QStringLiteral("--engine %1 --screenshot %2 ").arg(engine.address(), file) + more);
    }

    EngineProcess engine;
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("shot.png"));
};

TEST_F(Screenshot, HoldsThePage) {
    const QString log = folder.filePath(QStringLiteral("log.txt"));
    const Outcome run = take(QStringLiteral("--doc 1001 --page 2 --size 640x480 --log ") + log);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    const QImage image(file);
    EXPECT_EQ(image.size(), QSize(640, 480));
    QSet<QRgb> colours;
    int dark = 0;
    for (int y = 100; y < 420; ++y)
        for (int x = 20; x < 600; ++x) {
            colours.insert(image.pixel(x, y));
            dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
        }
    EXPECT_GT(dark, 500);
    EXPECT_LT(dark, 320 * 580 / 2);
    EXPECT_GT(colours.size(), 8) << "no gray between ink and paper";
    EXPECT_TRUE(QFile::exists(log));
    QFile settings(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/QuorvisImaging/Pixmo.ini"));
    if (settings.open(QIODevice::ReadOnly)) {
        EXPECT_FALSE(settings.readAll().contains("[Viewer]"));
    }
}

TEST_F(Screenshot, SaysWhyThereIsNone) {
    struct {
        const char* fault;
        const char* arguments;
        const char* reason;
    } const cases[] = {
        {"http500:GP", "--doc 1001", "The server answered 500 Internal Server Error."},
        {"errtext:GP", "--doc 1001", "Error: the archive is offline"},
        {"reset:IC", "--doc 1001", "Initial Contact failed or was cancelled."},
        {"", "--doc 77", ""},
        {"garbage:GP", "--doc 1001", "The page is no picture of a known format"},
    };
    for (const auto& failing : cases) {
        SCOPED_TRACE(failing.fault);
        engine.setFaults(failing.fault);
        const Outcome run = take(QLatin1String(failing.arguments));
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_THAT(run.errors, HasSubstr(failing.reason));
        EXPECT_FALSE(run.errors.empty());
        EXPECT_FALSE(QFile::exists(file));
    }
}

TEST_F(Screenshot, WaitsNoLongerThanItMay) {
    for (const char* fault : {"stall:IC", "stall:PC", "stall:GP"}) {
        engine.setFaults(fault);
        QElapsedTimer time;
        time.start();
        const Outcome run = take(QStringLiteral("--doc 1001 --timeout 1"));
        EXPECT_EQ(run.exitCode, 1) << fault;
        EXPECT_THAT(run.errors, HasSubstr("within 1 second")) << fault;
        EXPECT_LT(time.elapsed(), 10'000);
    }
}

TEST_F(Screenshot, CannotBeSavedWhereNothingCanBeSaved) {
    const Outcome run = runViewer(
        QStringLiteral("--engine %1 --doc 1001 --screenshot /nowhere/shot.png").arg(engine.address()));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr("/nowhere/shot.png"));
}

} // namespace
} // namespace pixmo::qt
