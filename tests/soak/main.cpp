#include "tests/soak/soak.h"

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char** argv) {
    constexpr int usualChanges = 2000;
    const QTemporaryDir home;
    qputenv("TMPDIR", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    if (!qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int changes = argc > 1 ? QApplication::arguments().at(1).toInt() : usualChanges;
    return changes > 0 && pixmo::qt::Soak(changes).run() ? 0 : 1;
}
