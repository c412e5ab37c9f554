#include "faces/qt/ports/systemproxies.h"

namespace pixmo::qt {

QList<QNetworkProxy> SystemProxies::queryProxy(const QNetworkProxyQuery& query) {
    const QNetworkProxy own = QNetworkProxy::applicationProxy();
    if (own.type() != QNetworkProxy::NoProxy && own.type() != QNetworkProxy::DefaultProxy)
        return {own};
    return systemProxyForQuery(query);
}

} // namespace pixmo::qt
