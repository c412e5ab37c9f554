#include "tests/qt/cupsqueue.h"

#include "tests/qt/waiting.h"

#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <grp.h>
#include <pwd.h>
#include <unistd.h>

namespace pixmo::qt {

namespace {

constexpr const char* Rules = R"(LogLevel info
Listen @/run/cups.sock
Browsing No
DefaultPaperSize None
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

/// Keeps the file of a job and what it came with.
constexpr const char* Backend = R"(#!/bin/sh
[ $# -ge 5 ] || exit 0
out=${DEVICE_URI#keep:}
if [ $# -ge 6 ]; then cat "$6"; else cat; fi >"$out"
echo "$1|$3|$4|$5" >"$out.part"
mv "$out.part" "$out.options"
)";

bool isRoot() {
    return getuid() == 0;
}

/// A scheduler that runs as root hands its work to somebody else.
QByteArray worker() {
    const passwd* const self = getpwuid(getuid());
    return isRoot() || !self ? QByteArray("lp") : QByteArray(self->pw_name);
}

QByteArray workersGroup() {
    const group* const own = getgrgid(getgid());
    return isRoot() || !own ? QByteArray("lp") : QByteArray(own->gr_name);
}

} // namespace

CupsQueue::CupsQueue() {
    makeFolders();
    makeBackend();
    write(QStringLiteral("cupsd.conf"), QByteArray(Rules).replace("@", folder_.path().toLocal8Bit()));
    write(QStringLiteral("cups-files.conf"), files());
    if (startScheduler() && add())
        return;
    problem_ = "No print system can be started: " + scheduler_.errorString().toStdString() + "\n" +
               scheduler_.readAll().toStdString() + read(QStringLiteral("log/error"));
}

CupsQueue::~CupsQueue() {
    scheduler_.terminate();
    scheduler_.waitForFinished(5'000);
}

bool CupsQueue::startScheduler() {
    const QString path = folder_.path();
    const QString socket = path + QStringLiteral("/run/cups.sock");
    qputenv("CUPS_SERVER", socket.toLocal8Bit());
    scheduler_.setProcessChannelMode(QProcess::MergedChannels);
    scheduler_.start(QStringLiteral(PIXMO_CUPSD),
                     {QStringLiteral("-f"), QStringLiteral("-c"), path + QStringLiteral("/cupsd.conf"),
                      QStringLiteral("-s"), path + QStringLiteral("/cups-files.conf")});
    // The socket is there before anybody listens to it.
    const auto listens = [&] {
        QLocalSocket client;
        client.connectToServer(socket);
        return client.waitForConnected(1'000);
    };
    return waitFor([&] { return scheduler_.state() == QProcess::NotRunning || listens(); }, 30'000) &&
           scheduler_.state() == QProcess::Running;
}

bool CupsQueue::add() {
    return admin("lpadmin",
                 {QStringLiteral("-p"), QString::fromLatin1(Name), QStringLiteral("-E"), QStringLiteral("-v"),
                  QStringLiteral("keep:") + job(), QStringLiteral("-P"), QStringLiteral(PIXMO_PRINTER)}) == 0;
}

int CupsQueue::admin(const char* program, const QStringList& arguments) const {
    return QProcess::execute(QStringLiteral(PIXMO_PRINT_PROGRAMS "/") + QString::fromLatin1(program),
                             arguments);
}

// The worker needs to pass the folders and to write in some, whatever the user's mask.
void CupsQueue::makeFolders() const {
    const QDir root(folder_.path());
    for (const char* name :
         {"", "root", "cache", "state", "spool", "spool/tmp", "run", "log", "out", "bin", "bin/backend"}) {
        const QString path = root.filePath(QString::fromLatin1(name));
        root.mkpath(path);
        QFile::setPermissions(path, QFile::Permissions(0x7755));
    }
    if (isRoot())
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
           "/log/error\nPageLog " + root + "/log/page\nUser " + worker() + "\nGroup " + workersGroup() + "\n";
}

void CupsQueue::write(const QString& name, const QByteArray& text) const {
    QFile file(folder_.filePath(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
}

std::string CupsQueue::read(const QString& name) const {
    QFile file(folder_.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toStdString() : std::string();
}

std::string CupsQueue::options() const {
    const QString name = QStringLiteral("out/job.pdf.options");
    return waitFor([&] { return QFile::exists(folder_.filePath(name)); }) ? read(name) : "nothing came out";
}

void CupsQueue::forgetJob() const {
    QFile::remove(job());
    QFile::remove(job() + QStringLiteral(".options"));
}

} // namespace pixmo::qt
