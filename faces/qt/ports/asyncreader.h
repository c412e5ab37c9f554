#pragma once

#include "core/platform/asyncreader.h"
#include "faces/qt/ports/transfer.h"

#include <QNetworkAccessManager>
#include <QPointer>
#include <map>
#include <memory>

namespace pixmo::qt {

/// Transfers over HTTP and HTTPS by Qt's network.
class AsyncReader : public pixmo::AsyncReader {
public:
    AsyncReader() = default;
    /// Cancels what is under way.
    ~AsyncReader() override;
    AsyncReader(const AsyncReader&) = delete;
    AsyncReader& operator=(const AsyncReader&) = delete;

    void setListener(AsyncReadListener* listener) override { listener_ = listener; }
    void AsyncRead(const AsyncRequest& request) override;
    void CancelAsyncRead(const std::string& propertyName) override;

    /// The host's own; nullptr, or once it is gone, the reader's.
    void setNetworkAccessManager(QNetworkAccessManager* network) { hostNetwork_ = network; }
    TransferLimits& limits() { return limits_; }

private:
    struct DeleteLater {
        void operator()(QObject* object) const { object->deleteLater(); }
    };

    QNetworkAccessManager& network();
    void progress(const AsyncProperty& record);
    void complete(const AsyncProperty& record);

    AsyncReadListener* listener_ = nullptr;
    QPointer<QNetworkAccessManager> hostNetwork_;
    std::unique_ptr<QNetworkAccessManager, DeleteLater> ownNetwork_;
    std::map<std::string, QPointer<Transfer>> running_;
    TransferLimits limits_;
};

} // namespace pixmo::qt
