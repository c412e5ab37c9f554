#include "apps/pixmo/documentaddress.h"

#include <QUrl>

namespace pixmo::viewer {

bool isEngineAddress(const QString& text) {
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https")) &&
           !url.hasFragment();
}

} // namespace pixmo::viewer
