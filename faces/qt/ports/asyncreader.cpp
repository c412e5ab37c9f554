#include "faces/qt/ports/asyncreader.h"

#include "faces/qt/ports/systemproxies.h"
#include "faces/qt/ports/timers.h"
#include "faces/qt/ports/transfer.h"

namespace pixmo::qt {

AsyncReader::AsyncReader() : NetworkReader(std::make_unique<Timers>()) {}

QNetworkAccessManager& AsyncReader::network() {
    if (hostNetwork_)
        return *hostNetwork_;
    if (!ownNetwork_) {
        ownNetwork_.reset(new QNetworkAccessManager);
        ownNetwork_->setProxyFactory(new SystemProxies);
    }
    return *ownNetwork_;
}

std::unique_ptr<Connection> AsyncReader::connect(const std::string& target, ConnectionListener& listener) {
    return std::make_unique<Transfer>(network(), target, listener);
}

} // namespace pixmo::qt
