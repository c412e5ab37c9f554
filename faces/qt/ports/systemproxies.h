#pragma once

#include <QNetworkProxyFactory>

namespace pixmo::qt {

/// The proxy that the program has set for itself, else that of the system.
class SystemProxies : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override;
};

} // namespace pixmo::qt
