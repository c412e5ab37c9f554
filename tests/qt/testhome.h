#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace pixmo::qt {

/// The user's settings and temporary files are not the tests' business.
inline void separateFromUser(const QTemporaryDir& home) {
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

} // namespace pixmo::qt
