#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/// The user's settings and temporary files are not the tests' business.
void separateFromUser(const QTemporaryDir& home) {
    for (const char* folder : {"XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "TMPDIR"}) {
        const QString path = home.filePath(QString::fromLatin1(folder));
        QDir().mkpath(path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv(folder, path.toLocal8Bit());
    }
    if (!qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char* proxy : {"http_proxy", "HTTP_PROXY"})
        qunsetenv(proxy);
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir home;
    separateFromUser(home);
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return result;
}
