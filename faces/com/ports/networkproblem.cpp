#include "faces/com/ports/networkproblem.h"

#include <algorithm>
#include <array>
#include <urlmon.h>
#include <utility>
#include <wininet.h>

namespace pixmo::com {

namespace {

constexpr std::array<std::pair<DWORD, NetworkProblem>, 9> Details = {{
    {ERROR_INTERNET_TIMEOUT, NetworkProblem::NoAnswer},
    {ERROR_INTERNET_NAME_NOT_RESOLVED, NetworkProblem::NotFound},
    {ERROR_INTERNET_CANNOT_CONNECT, NetworkProblem::Refused},
    {ERROR_INTERNET_CONNECTION_ABORTED, NetworkProblem::Closed},
    {ERROR_INTERNET_CONNECTION_RESET, NetworkProblem::Closed},
    {ERROR_HTTP_INVALID_SERVER_RESPONSE, NetworkProblem::Malformed},
    {ERROR_HTTP_INVALID_HEADER, NetworkProblem::Malformed},
    {ERROR_HTTP_REDIRECT_FAILED, NetworkProblem::EndlessRedirects},
    {ERROR_INTERNET_HTTPS_TO_HTTP_ON_REDIR, NetworkProblem::InsecureRedirect},
}};

/// Where the network tells no more than that.
const std::array<std::pair<HRESULT, NetworkProblem>, 6> Results = {{
    {INET_E_RESOURCE_NOT_FOUND, NetworkProblem::NotFound},
    {INET_E_CANNOT_CONNECT, NetworkProblem::Refused},
    {INET_E_CONNECTION_TIMEOUT, NetworkProblem::NoAnswer},
    {INET_E_DOWNLOAD_FAILURE, NetworkProblem::NoAnswer},
    {INET_E_INVALID_REQUEST, NetworkProblem::Malformed},
    {INET_E_REDIRECT_FAILED, NetworkProblem::EndlessRedirects},
}};

template <typename Table, typename Key>
NetworkProblem lookUp(const Table& table, Key key) {
    const auto found =
        std::find_if(table.begin(), table.end(), [key](const auto& row) { return row.first == key; });
    return found == table.end() ? NetworkProblem::Other : found->second;
}

} // namespace

NetworkProblem networkProblem(HRESULT result, DWORD detail) {
    if (SUCCEEDED(result))
        return NetworkProblem::None;
    const NetworkProblem known = lookUp(Details, detail);
    return known == NetworkProblem::Other ? lookUp(Results, result) : known;
}

} // namespace pixmo::com
