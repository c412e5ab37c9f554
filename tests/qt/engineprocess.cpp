#include "tests/qt/engineprocess.h"

#include "tests/qt/waiting.h"
#include "tests/transfers/enginecontrol.h"

#include <stdexcept>

namespace pixmo::qt {

EngineProcess::EngineProcess(const QStringList& moreArguments, const QString& documents) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral(PIXMO_ENGINE_PROGRAM),
                   QStringList{QStringLiteral("--docs"),
                               documents.isEmpty() ? QStringLiteral(PIXMO_SAMPLES) : documents,
                               QStringLiteral("--control")} +
                       moreArguments);
    if (!waitFor([this] { return process_.canReadLine(); }))
        throw std::runtime_error("The engine does not start.");
    address_ = QString::fromLatin1(process_.readLine().trimmed()).section(QLatin1Char(' '), -1);
}

EngineProcess::~EngineProcess() {
    process_.terminate();
    process_.waitForFinished(Patience);
}

void EngineProcess::setFaults(const QByteArray& faults) const {
    transfers::EngineControl(address_.toStdString()).setFaults(faults.toStdString());
}

int EngineProcess::requests(const QByteArray& kind) const {
    return transfers::EngineControl(address_.toStdString()).requests(kind.toStdString());
}

} // namespace pixmo::qt
