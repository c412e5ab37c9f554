#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <string>

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

    /// Why there is no queue; "" when there is one.
    const std::string& problem() const { return problem_; }

    /// Makes the queue anew, ready for jobs.
    bool add();
    void remove() const { admin("lpadmin", {QStringLiteral("-x"), QString::fromLatin1(Name)}); }
    void refuseJobs() const { admin("cupsreject", {QString::fromLatin1(Name)}); }

    /// The file that the last job was.
    QString job() const { return folder_.filePath(QStringLiteral("out/job.pdf")); }
    /// What the last job came with: "number|title|copies|options", once it is there.
    std::string options() const;
    void forgetJob() const;

private:
    void write(const QString& name, const QByteArray& text) const;
    void makeFolders() const;
    void makeBackend() const;
    QByteArray files() const;
    bool startScheduler();
    int admin(const char* program, const QStringList& arguments) const;
    std::string read(const QString& name) const;

    QTemporaryDir folder_{QStringLiteral("/tmp/pixmo-cups-XXXXXX")};
    QProcess scheduler_;
    std::string problem_;
};

} // namespace pixmo::qt
