#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace pixmo::qt {

/// A print system of its own, with one queue that keeps what comes as a file. Makes itself the print system
/// of this process, so it must come before any other use of printers.
class CupsQueue {
public:
    static constexpr const char* Name = "pixmo-test";

    CupsQueue();
    ~CupsQueue();
    CupsQueue(const CupsQueue&) = delete;
    CupsQueue& operator=(const CupsQueue&) = delete;

    bool isReady() const { return ready_; }
    QString job() const { return folder_.filePath(QStringLiteral("out/job.pdf")); }
    /// The options that the last job came with.
    QByteArray options() const;

private:
    void write(const QString& name, const QByteArray& text) const;
    void makeFolders() const;
    void makeBackend() const;
    QByteArray files() const;

    QTemporaryDir folder_{QStringLiteral("/tmp/pixmo-cups-XXXXXX")};
    QProcess scheduler_;
    bool ready_ = false;
};

} // namespace pixmo::qt
