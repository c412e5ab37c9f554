#include "tests/soak/randomuser.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <cstdio>
#include <random>

namespace {

/// The argument as a number above 0, else the usual one.
int numberAt(qsizetype place, int usual) {
    const int number = QApplication::arguments().value(place).toInt();
    return number > 0 ? number : usual;
}

} // namespace

// pixmo_soak [STEPS [SEED]]
int main(int argc, char** argv) {
    const QTemporaryDir home;
    for (const char* folder : {"TMPDIR", "XDG_CONFIG_HOME", "HOME"})
        qputenv(folder, home.path().toLocal8Bit());
    // What a dialog may write goes with the run.
    QDir::setCurrent(home.path());
    if (!qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto seed = static_cast<uint32_t>(numberAt(2, static_cast<int>(std::random_device()() >> 1)));
    std::printf("seed %u\n", seed);
    std::fflush(stdout);
    return pixmo::qt::RandomUser(seed).run(numberAt(1, 20'000)) ? 0 : 1;
}
