#include "faces/qt/transfertexts.h"

#include <QCoreApplication>
#include <QNetworkReply>
#include <algorithm>
#include <array>
#include <utility>

namespace pixmo::qt {

namespace {

constexpr const char* Context = "Transfer";

using Problem = std::pair<QNetworkReply::NetworkError, const char*>;

constexpr std::array<Problem, 11> Problems = {{
    {QNetworkReply::ConnectionRefusedError,
     QT_TRANSLATE_NOOP("Transfer", "The server refused the connection.")},
    {QNetworkReply::RemoteHostClosedError,
     QT_TRANSLATE_NOOP("Transfer", "The server closed the connection.")},
    {QNetworkReply::HostNotFoundError, QT_TRANSLATE_NOOP("Transfer", "The server was not found.")},
    {QNetworkReply::TimeoutError, QT_TRANSLATE_NOOP("Transfer", "The server does not answer.")},
    {QNetworkReply::TooManyRedirectsError,
     QT_TRANSLATE_NOOP("Transfer", "The server redirects without end.")},
    {QNetworkReply::InsecureRedirectError,
     QT_TRANSLATE_NOOP("Transfer", "The server redirects to an insecure address.")},
    {QNetworkReply::ProxyConnectionRefusedError,
     QT_TRANSLATE_NOOP("Transfer", "The proxy refused the connection.")},
    {QNetworkReply::ProxyConnectionClosedError,
     QT_TRANSLATE_NOOP("Transfer", "The proxy closed the connection.")},
    {QNetworkReply::ProxyNotFoundError, QT_TRANSLATE_NOOP("Transfer", "The proxy was not found.")},
    {QNetworkReply::ProxyTimeoutError, QT_TRANSLATE_NOOP("Transfer", "The proxy does not answer.")},
    {QNetworkReply::ProtocolFailure, QT_TRANSLATE_NOOP("Transfer", "The server's answer is malformed.")},
}};

constexpr int FirstGoodStatus = 200;
constexpr int FirstOtherStatus = 300;

QString statusProblem(int status, const QString& phrase) {
    const QString text = QCoreApplication::translate(Context, "The server answered %1.");
    return text.arg((QString::number(status) + QLatin1Char(' ') + phrase).trimmed());
}

} // namespace

QString transferProblem(const QNetworkReply& reply) {
    const QNetworkReply::NetworkError error = reply.error();
    const auto* known = std::find_if(Problems.begin(), Problems.end(),
                                     [error](const Problem& problem) { return problem.first == error; });
    if (known != Problems.end())
        return QCoreApplication::translate(Context, known->second);
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status != 0 && (status < FirstGoodStatus || status >= FirstOtherStatus))
        return statusProblem(status, reply.attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString());
    return error == QNetworkReply::NoError ? QString() : reply.errorString();
}

} // namespace pixmo::qt
