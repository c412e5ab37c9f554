#include "faces/qt/ports/networkproblem.h"

#include <QNetworkReply>
#include <algorithm>
#include <array>
#include <utility>

namespace pixmo::qt {

namespace {

using Reply = QNetworkReply;

constexpr std::array<std::pair<Reply::NetworkError, NetworkProblem>, 12> Problems = {{
    {Reply::NoError, NetworkProblem::None},
    {Reply::ConnectionRefusedError, NetworkProblem::Refused},
    {Reply::RemoteHostClosedError, NetworkProblem::Closed},
    {Reply::HostNotFoundError, NetworkProblem::NotFound},
    {Reply::TimeoutError, NetworkProblem::NoAnswer},
    {Reply::TooManyRedirectsError, NetworkProblem::EndlessRedirects},
    {Reply::InsecureRedirectError, NetworkProblem::InsecureRedirect},
    {Reply::ProxyConnectionRefusedError, NetworkProblem::ProxyRefused},
    {Reply::ProxyConnectionClosedError, NetworkProblem::ProxyClosed},
    {Reply::ProxyNotFoundError, NetworkProblem::ProxyNotFound},
    {Reply::ProxyTimeoutError, NetworkProblem::ProxyNoAnswer},
    {Reply::ProtocolFailure, NetworkProblem::Malformed},
}};

} // namespace

NetworkProblem networkProblem(const QNetworkReply& reply) {
    const auto* const known = std::find_if(Problems.begin(), Problems.end(), [&reply](const auto& problem) {
        return problem.first == reply.error();
    });
    return known == Problems.end() ? NetworkProblem::Other : known->second;
}

} // namespace pixmo::qt
