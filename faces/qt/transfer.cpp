#include "faces/qt/transfer.h"

#include "core/base/error.h"
#include "core/base/product.h"
#include "faces/qt/texts.h"
#include "faces/qt/transfertexts.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <algorithm>
#include <limits>
#include <utility>

namespace pixmo::qt {

namespace {

constexpr int MostRedirects = 10;
constexpr int ProgressMilliseconds = 50;
constexpr int64_t BytesInMiB = 1'048'576;
constexpr double MillisecondsInSecond = 1000;

QString translated(const char* text) {
    return QCoreApplication::translate("Transfer", text);
}

Error invalidAddressError(const std::string& target) {
    const std::string address = target.substr(0, target.find('?'));
    return {error_number::InvalidProcedureCall,
            "'" + address + "' is not the address of a server (http://... or https://...)."};
}

/// The target travels byte for byte, so it is taken apart without any correction.
QUrl addressOf(const std::string& target) {
    const QUrl url = QUrl::fromEncoded(QByteArray::fromStdString(target), QUrl::StrictMode);
    const QString scheme = url.scheme();
    if (!url.isValid() || url.host().isEmpty() ||
        (scheme != QLatin1String("http") && scheme != QLatin1String("https")))
        throw invalidAddressError(target);
    return url;
}

QNetworkRequest networkRequest(const QUrl& url) {
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(MostRedirects);
    request.setRawHeader("Cache-Control", "no-cache");
    // Sizes are those of the page, and no small answer swells.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setHeader(
        QNetworkRequest::UserAgentHeader,
        QStringLiteral("%1/%2.%3").arg(toQt(product::Title)).arg(product::Major).arg(product::Minor));
    return request;
}

int32_t clamped(int64_t count) {
    return static_cast<int32_t>(std::clamp<int64_t>(count, 0, std::numeric_limits<int32_t>::max()));
}

} // namespace

Transfer::Transfer(QNetworkAccessManager& network, const AsyncRequest& request, const TransferLimits& limits,
                   Report progress, Report completed)
    : request_(request), limits_(limits), progress_(std::move(progress)), completed_(std::move(completed)),
      network_(&network) {
    static_cast<void>(addressOf(request.Target));
    if (request_.Type == AsyncType::File)
        openFile();
    startTimers();
    ask();
}

Transfer::~Transfer() {
    cancel();
}

void Transfer::openFile() {
    file_.setFileName(toQt(request_.File.string()));
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate,
                    QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        throw pathFileAccessError();
}

void Transfer::startTimers() {
    stall_.setSingleShot(true);
    stall_.setInterval(limits_.stallMilliseconds);
    progressPause_.setSingleShot(true);
    progressPause_.setInterval(ProgressMilliseconds);
    connect(&stall_, &QTimer::timeout, this, [this] {
        fail(translated("The server has sent nothing for %1 seconds.")
                 .arg(limits_.stallMilliseconds / MillisecondsInSecond));
    });
    connect(&progressPause_, &QTimer::timeout, this,
            [this] { progress_(record(AsyncStatus::DownloadingData)); });
    stall_.start();
}

void Transfer::ask() {
    reply_ = network_->get(networkRequest(addressOf(request_.Target)));
    reply_->setParent(this);
    watch();
}

void Transfer::watch() {
    const auto alive = [this] { stall_.start(); };
    connect(reply_, &QNetworkReply::encrypted, this, alive);
    connect(reply_, &QNetworkReply::requestSent, this, alive);
    connect(reply_, &QNetworkReply::redirected, this, alive);
    connect(reply_, &QNetworkReply::metaDataChanged, this, alive);
    connect(reply_, &QNetworkReply::readyRead, this, [this] { receive(); });
    connect(reply_, &QNetworkReply::finished, this, [this] { finish(); });
    if (reply_->isFinished())
        finish();
}

/// A connection that was kept alive may have ended just when the request went out on it.
bool Transfer::diedBeforeAnswering() const {
    return reply_->error() == QNetworkReply::RemoteHostClosedError && received_ == 0 &&
           !reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid();
}

void Transfer::receive() {
    stall_.start();
    const QByteArray data = reply_->readAll();
    received_ += data.size();
    const int64_t limit = request_.Type == AsyncType::File ? limits_.fileBytes : limits_.textBytes;
    if (received_ > limit) {
        fail(translated("The answer is larger than %1 MiB.").arg(static_cast<double>(limit) / BytesInMiB));
        return;
    }
    keep(data);
    if (!over_ && !progressPause_.isActive())
        progressPause_.start();
}

void Transfer::keep(const QByteArray& data) {
    if (request_.Type != AsyncType::File)
        bytes_.append(data);
    else if (file_.write(data) != data.size())
        fail(translated("The page cannot be stored: %1.").arg(file_.errorString()));
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
    failure_ = problem();
    if (failure_.isEmpty() && request_.Type == AsyncType::File && !file_.flush())
        failure_ = translated("The page cannot be stored: %1.").arg(file_.errorString());
    conclude();
}

void Transfer::fail(const QString& reason) {
    if (over_)
        return;
    failure_ = reason;
    conclude();
}

// The report comes in an event of its own: never from inside of the call that started the transfer, and not
// from inside of the network's code, which a listener might end.
void Transfer::conclude() {
    over_ = true;
    stall_.stop();
    progressPause_.stop();
    reply_->disconnect(this);
    reply_->abort();
    file_.close();
    if (!failure_.isEmpty() && request_.Type == AsyncType::File)
        file_.remove();
    QTimer::singleShot(0, this, [this] {
        // Cancelled since.
        if (!completed_)
            return;
        const Report completed = std::exchange(completed_, nullptr);
        completed(record(failure_.isEmpty() ? AsyncStatus::EndDownloadData : AsyncStatus::Error));
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
    if (request_.Type == AsyncType::File)
        file_.remove();
    deleteLater();
}

qint64 Transfer::announcedSize() const {
    const QVariant size = reply_->header(QNetworkRequest::ContentLengthHeader);
    return size.isValid() ? size.toLongLong() : -1;
}

QString Transfer::problem() const {
    const qint64 size = announcedSize();
    const bool shortened = size > received_ && !reply_->hasRawHeader("Content-Encoding");
    const QString known = transferProblem(*reply_);
    if (shortened && (known.isEmpty() || reply_->error() == QNetworkReply::RemoteHostClosedError))
        return translated("The answer ended after %1 of %2 bytes.").arg(received_).arg(size);
    return known;
}

AsyncProperty Transfer::record(AsyncStatus status) const {
    AsyncProperty record;
    record.PropertyName = request_.PropertyName;
    record.Target = request_.Target;
    record.Type = request_.Type;
    record.StatusCode = static_cast<int32_t>(status);
    record.Status = (failure_.isEmpty() ? reply_->url().host() : failure_).toStdString();
    record.BytesRead = clamped(received_);
    record.BytesMax = clamped(announcedSize());
    if (status == AsyncStatus::EndDownloadData) {
        record.Bytes.assign(bytes_.begin(), bytes_.end());
        if (request_.Type == AsyncType::File)
            record.File = request_.File;
    }
    return record;
}

} // namespace pixmo::qt
