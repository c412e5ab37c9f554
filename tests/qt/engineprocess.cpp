#include "tests/qt/engineprocess.h"

#include "tests/qt/waiting.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <memory>
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

QByteArray EngineProcess::ask(const QString& path, const QByteArray* body) const {
    QNetworkAccessManager network;
    QNetworkRequest request(QUrl(address_).resolved(QUrl(path)));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("text/plain"));
    const std::unique_ptr<QNetworkReply> reply(body ? network.post(request, *body) : network.get(request));
    if (!waitFor([&] { return reply->isFinished(); }) || reply->error() != QNetworkReply::NoError)
        throw std::runtime_error("The engine does not take orders: " + reply->errorString().toStdString());
    return reply->readAll();
}

void EngineProcess::setFaults(const QByteArray& faults) const {
    ask(QStringLiteral("/faults"), &faults);
}

int EngineProcess::requests(const QByteArray& kind) const {
    for (const QByteArray& line : ask(QStringLiteral("/stats"), nullptr).split('\n'))
        if (line.startsWith(kind))
            return line.mid(kind.size()).trimmed().toInt();
    return 0;
}

} // namespace pixmo::qt
