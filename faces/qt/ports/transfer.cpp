#include "faces/qt/ports/transfer.h"

#include "faces/qt/ports/networkproblem.h"

#include <QNetworkRequest>
#include <utility>

namespace pixmo::qt {

namespace {

/// The target travels byte for byte, so it is taken apart without any correction.
QUrl addressOf(const std::string& target) {
    return QUrl::fromEncoded(QByteArray::fromStdString(target), QUrl::StrictMode);
}

QNetworkRequest networkRequest(const QUrl& url) {
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(Download::MostRedirects);
    for (const auto& [name, value] : requestHeaders())
        request.setRawHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
    return request;
}

} // namespace

Transfer::Transfer(QNetworkAccessManager& network, const std::string& target, ConnectionListener& listener)
    : network_(&network), target_(target), listener_(listener) {
    ask();
}

Transfer::~Transfer() {
    leave();
}

/// Nothing more is heard of the present reply.
void Transfer::leave() {
    reply_->disconnect(this);
    reply_->abort();
    reply_->deleteLater();
}

void Transfer::ask() {
    reply_ = network_->get(networkRequest(addressOf(target_)));
    // It may outlive the host's network.
    reply_->setParent(nullptr);
    const auto alive = [this] { listener_.alive(); };
    connect(reply_, &QNetworkReply::encrypted, this, alive);
    connect(reply_, &QNetworkReply::requestSent, this, alive);
    connect(reply_, &QNetworkReply::redirected, this, alive);
    connect(reply_, &QNetworkReply::metaDataChanged, this, [this] { noteAnswer(); });
    connect(reply_, &QNetworkReply::readyRead, this, [this] { receive(); });
    connect(reply_, &QNetworkReply::finished, this, [this] { finish(); });
    if (reply_->isFinished())
        finish();
}

/// A connection that was kept alive may have ended just when the request went out on it.
bool Transfer::diedBeforeAnswering() const {
    return reply_->error() == QNetworkReply::RemoteHostClosedError && !hasReceived_ &&
           !reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid();
}

void Transfer::receive() {
    const QByteArray data = reply_->readAll();
    hasReceived_ = true;
    listener_.received({reinterpret_cast<const uint8_t*>(data.data()), static_cast<size_t>(data.size())});
}

void Transfer::finish() {
    if (reply_->bytesAvailable() > 0)
        receive();
    if (diedBeforeAnswering() && network_ && !std::exchange(askedAgain_, true)) {
        leave();
        ask();
        return;
    }
    listener_.ended(networkProblem(*reply_), reply_->errorString().toStdString());
}

void Transfer::noteAnswer() {
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QString phrase = reply_->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString();
    const QVariant size = reply_->header(QNetworkRequest::ContentLengthHeader);
    const bool packed = reply_->hasRawHeader(PackingHeader);
    listener_.answered(status, phrase.toStdString(), size.isValid() && !packed ? size.toLongLong() : -1);
}

} // namespace pixmo::qt
