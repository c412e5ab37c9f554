#include "faces/qt/ports/transfer.h"

#include "faces/qt/ports/networkproblem.h"

#include <QNetworkAccessManager>
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

Transfer::Transfer(QNetworkAccessManager& network, const AsyncRequest& request, const TransferLimits& limits,
                   Report progress, Report completed)
    : download_(request, limits), progress_(std::move(progress)), completed_(std::move(completed)),
      network_(&network) {
    startTimers();
    ask();
}

Transfer::~Transfer() {
    cancel();
}

void Transfer::startTimers() {
    stall_.setSingleShot(true);
    stall_.setInterval(download_.limits().stallMilliseconds);
    progressPause_.setSingleShot(true);
    progressPause_.setInterval(Download::ProgressMilliseconds);
    connect(&stall_, &QTimer::timeout, this, [this] {
        download_.stalled();
        conclude();
    });
    connect(&progressPause_, &QTimer::timeout, this, [this] { progress_(download_.progress()); });
    stall_.start();
}

void Transfer::ask() {
    reply_ = network_->get(networkRequest(addressOf(download_.request().Target)));
    reply_->setParent(this);
    watch();
}

void Transfer::watch() {
    const auto alive = [this] { stall_.start(); };
    connect(reply_, &QNetworkReply::encrypted, this, alive);
    connect(reply_, &QNetworkReply::requestSent, this, alive);
    connect(reply_, &QNetworkReply::redirected, this, alive);
    connect(reply_, &QNetworkReply::metaDataChanged, this, alive);
    connect(reply_, &QNetworkReply::metaDataChanged, this, [this] { noteAnswer(); });
    connect(reply_, &QNetworkReply::readyRead, this, [this] { receive(); });
    connect(reply_, &QNetworkReply::finished, this, [this] { finish(); });
    if (reply_->isFinished())
        finish();
}

/// A connection that was kept alive may have ended just when the request went out on it.
bool Transfer::diedBeforeAnswering() const {
    return reply_->error() == QNetworkReply::RemoteHostClosedError && download_.bytesRead() == 0 &&
           !reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid();
}

void Transfer::receive() {
    stall_.start();
    const QByteArray data = reply_->readAll();
    download_.received({reinterpret_cast<const uint8_t*>(data.data()), static_cast<size_t>(data.size())});
    if (download_.failed())
        conclude();
    else if (!progressPause_.isActive())
        progressPause_.start();
}

void Transfer::finish() {
    if (over_)
        return;
    if (reply_->bytesAvailable() > 0)
        receive();
    if (over_)
        return;
    if (diedBeforeAnswering() && network_ && !std::exchange(askedAgain_, true)) {
        reply_->disconnect(this);
        reply_->deleteLater();
        ask();
        return;
    }
    download_.ended(networkProblem(*reply_), reply_->errorString().toStdString());
    conclude();
}

void Transfer::noteAnswer() {
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QString phrase = reply_->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString();
    const QVariant size = reply_->header(QNetworkRequest::ContentLengthHeader);
    const bool packed = reply_->hasRawHeader(PackingHeader);
    download_.answered(status, phrase.toStdString(), size.isValid() && !packed ? size.toLongLong() : -1);
}

// The report comes in an event of its own: never from inside of the call that started the transfer, and not
// from inside of the network's code, which a listener might end.
void Transfer::conclude() {
    if (std::exchange(over_, true))
        return;
    stall_.stop();
    progressPause_.stop();
    reply_->disconnect(this);
    reply_->abort();
    QTimer::singleShot(0, this, [this] {
        // Cancelled since.
        if (!completed_)
            return;
        const Report completed = std::exchange(completed_, nullptr);
        completed(download_.deliver());
    });
}

void Transfer::cancel() {
    // What was reported belongs to the listener.
    if (!completed_)
        return;
    over_ = true;
    completed_ = nullptr;
    stall_.stop();
    progressPause_.stop();
    reply_->disconnect(this);
    reply_->abort();
    download_.discard();
    deleteLater();
}

} // namespace pixmo::qt
