#pragma once

#include "core/control/download.h"

class QNetworkReply;

namespace pixmo::qt {

/// What kept the reply from arriving; a status of HTTP is an answer and no such problem.
NetworkProblem networkProblem(const QNetworkReply& reply);

} // namespace pixmo::qt
