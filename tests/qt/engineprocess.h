#pragma once

#include <QProcess>
#include <QString>

namespace pixmo::qt {

/// The sample imaging server in a process of its own, serving the sample documents or others.
class EngineProcess {
public:
    explicit EngineProcess(const QStringList& moreArguments = {}, const QString& documents = {});
    ~EngineProcess();
    EngineProcess(const EngineProcess&) = delete;
    EngineProcess& operator=(const EngineProcess&) = delete;

    /// "http://127.0.0.1:PORT/engine"
    const QString& address() const { return address_; }
    /// Replaces the faults; "" ends them all.
    void setFaults(const QByteArray& faults) const;
    /// Requests of a kind ("IC", "PC", "GP") so far.
    int requests(const QByteArray& kind) const;

private:
    QProcess process_;
    QString address_;
};

} // namespace pixmo::qt
