#pragma once

#include <QString>

class QNetworkReply;

namespace pixmo::qt {

/// Why the reply failed, in a sentence for the user that holds no address: what is asked for is nobody's
/// business. "" when it did not fail.
QString transferProblem(const QNetworkReply& reply);

} // namespace pixmo::qt
