#pragma once

#include "core/control/networkreader.h"

#include <QNetworkAccessManager>
#include <QPointer>
#include <memory>

namespace pixmo::qt {

/// Transfers by Qt's network.
class AsyncReader : public NetworkReader {
public:
    AsyncReader();

    /// The host's own; nullptr, or once it is gone, the reader's.
    void setNetworkAccessManager(QNetworkAccessManager* network) { hostNetwork_ = network; }

protected:
    std::unique_ptr<Connection> connect(const std::string& target, ConnectionListener& listener) override;

private:
    struct DeleteLater {
        void operator()(QObject* object) const { object->deleteLater(); }
    };

    QNetworkAccessManager& network();

    QPointer<QNetworkAccessManager> hostNetwork_;
    std::unique_ptr<QNetworkAccessManager, DeleteLater> ownNetwork_;
};

} // namespace pixmo::qt
