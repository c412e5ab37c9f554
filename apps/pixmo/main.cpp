#include "apps/pixmo/commandline.h"
#include "apps/pixmo/mainwindow.h"
#include "apps/pixmo/printfilejob.h"
#include "apps/pixmo/screenshotjob.h"

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>
#include <unistd.h>

namespace {

using namespace pixmo::viewer;

constexpr int BadArguments = 2;
constexpr int GraceSeconds = 2;

bool holds(int argc, char** argv, std::initializer_list<const char*> words) {
    return std::any_of(argv + 1, argv + argc, [&](const char* argument) {
        return std::any_of(words.begin(), words.end(), [&](const char* word) {
            return std::strncmp(argument, word, std::strlen(word)) == 0;
        });
    });
}

/// What needs no window needs no screen.
void doWithoutScreen(int argc, char** argv) {
    const bool hasScreen = qEnvironmentVariableIsSet("DISPLAY") ||
                           qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
                           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (!hasScreen || holds(argc, argv, {"--help", "-h", "--version", "-v"}))
        if (holds(argc, argv, {"--help", "-h", "--version", "-v", "--screenshot", "--print-to"}))
            qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// For a page whose decoding outlasts all patience: no event is handled meanwhile.
void endAtLast(int seconds) {
    std::signal(SIGALRM, [](int) {
        constexpr char text[] = "pixmo: The page was not there in time.\n";
        static_cast<void>(write(STDERR_FILENO, text, sizeof text - 1));
        _exit(1);
    });
    alarm(static_cast<unsigned>(seconds));
}

int takeScreenshot(const Options& options) {
    endAtLast(options.timeoutSeconds + GraceSeconds);
    ScreenshotJob job(options);
    job.start();
    return QApplication::exec();
}

int printToFile(const Options& options) {
    endAtLast(options.timeoutSeconds + GraceSeconds);
    PrintFileJob job(options);
    job.start();
    return QApplication::exec();
}

int showWindow(const Options& options) {
    MainWindow window(options);
    window.show();
    if (options.document.document != 0)
        QTimer::singleShot(0, &window, [&window, &options] { window.open(options.document); });
    return QApplication::exec();
}

int run(const Options& options) {
    if (options.showHelp) {
        std::fputs(qUtf8Printable(helpText()), stdout);
        return 0;
    }
    if (options.showVersion) {
        std::puts("pixmo " PIXMO_VERSION);
        return 0;
    }
    if (!options.printFile.isEmpty())
        return printToFile(options);
    return options.screenshot.isEmpty() ? showWindow(options) : takeScreenshot(options);
}

} // namespace

int main(int argc, char** argv) {
    doWithoutScreen(argc, argv);
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("pixmo"));
    QApplication::setApplicationDisplayName(QStringLiteral("Pixmo"));
    QApplication::setApplicationVersion(QStringLiteral(PIXMO_VERSION));
    const auto parsed = parseCommandLine(QApplication::arguments());
    if (const QString* const problem = std::get_if<QString>(&parsed)) {
        std::fprintf(stderr, "pixmo: %s\n", qUtf8Printable(*problem));
        return BadArguments;
    }
    return run(std::get<Options>(parsed));
}
