#include "tests/qt/cupsqueue.h"

#include "tests/qt/waiting.h"

#include <QDir>
#include <QFile>
#include <unistd.h>

namespace pixmo::qt {

namespace {

constexpr const char* Rules = R"(LogLevel info
Listen @/run/cups.sock
Browsing No
DefaultAuthType None
WebInterface No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
)";

constexpr const char* Backend = R"(#!/bin/sh
[ $# -ge 5 ] || exit 0
echo "$5 copies=$4" >"${DEVICE_URI#keep:}.options"
if [ $# -ge 6 ]; then cat "$6"; else cat; fi >"${DEVICE_URI#keep:}.part"
mv "${DEVICE_URI#keep:}.part" "${DEVICE_URI#keep:}"
)";

/// A scheduler that runs as root hands its work to somebody else.
QByteArray worker() {
    return getuid() == 0 ? QByteArray("lp") : qgetenv("USER");
}

} // namespace

CupsQueue::CupsQueue() {
    makeFolders();
    makeBackend();
    write(QStringLiteral("cupsd.conf"), QByteArray(Rules).replace("@", folder_.path().toLocal8Bit()));
    write(QStringLiteral("cups-files.conf"), files());
    const QString path = folder_.path();
    scheduler_.start(QStringLiteral(PIXMO_CUPSD),
                     {QStringLiteral("-f"), QStringLiteral("-c"), path + QStringLiteral("/cupsd.conf"),
                      QStringLiteral("-s"), path + QStringLiteral("/cups-files.conf")});
    const QString socket = path + QStringLiteral("/run/cups.sock");
    if (!waitFor([&] { return QFile::exists(socket); }, 5'000))
        return;
    qputenv("CUPS_SERVER", socket.toLocal8Bit());
    ready_ = QProcess::execute(QStringLiteral(PIXMO_LPADMIN),
                               {QStringLiteral("-p"), QString::fromLatin1(Name), QStringLiteral("-E"),
                                QStringLiteral("-v"), QStringLiteral("keep:") + job(), QStringLiteral("-m"),
                                QStringLiteral("raw")}) == 0;
}

CupsQueue::~CupsQueue() {
    scheduler_.terminate();
    scheduler_.waitForFinished(5'000);
}

void CupsQueue::makeFolders() const {
    const QDir root(folder_.path());
    QFile::setPermissions(folder_.path(), QFile::Permissions(0x7755));
    for (const char* name : {"root", "cache", "state", "spool/tmp", "run", "log", "out", "bin/backend"})
        root.mkpath(QString::fromLatin1(name));
    if (getuid() == 0)
        QProcess::execute(QStringLiteral("chown"),
                          {QStringLiteral("-R"), QStringLiteral("lp:lp"),
                           root.filePath(QStringLiteral("out")), root.filePath(QStringLiteral("spool")),
                           root.filePath(QStringLiteral("cache"))});
}

void CupsQueue::makeBackend() const {
    write(QStringLiteral("bin/backend/keep"), Backend);
    QFile::setPermissions(folder_.filePath(QStringLiteral("bin/backend/keep")), QFile::Permissions(0x7755));
    QFile::link(QStringLiteral("/usr/lib/cups/daemon"), folder_.filePath(QStringLiteral("bin/daemon")));
}

QByteArray CupsQueue::files() const {
    const QByteArray root = folder_.path().toLocal8Bit();
    return "ServerRoot " + root + "/root\nCacheDir " + root + "/cache\nStateDir " + root +
           "/state\nRequestRoot " + root + "/spool\nTempDir " + root + "/spool/tmp\nServerBin " + root +
           "/bin\nDataDir /usr/share/cups\nAccessLog " + root + "/log/access\nErrorLog " + root +
           "/log/error\nPageLog " + root + "/log/page\nUser " + worker() + "\nGroup " +
           (getuid() == 0 ? QByteArray("lp") : worker()) + "\n";
}

void CupsQueue::write(const QString& name, const QByteArray& text) const {
    QFile file(folder_.filePath(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
}

QByteArray CupsQueue::options() const {
    QFile file(job() + QStringLiteral(".options"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace pixmo::qt
