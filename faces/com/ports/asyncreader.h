#pragma once

#include "core/control/networkreader.h"

namespace pixmo::com {

/// Transfers by the system's URL monikers, with its proxies, certificates and cookies.
class AsyncReader : public NetworkReader {
public:
    AsyncReader();

protected:
    std::unique_ptr<Connection> connect(const std::string& target, ConnectionListener& listener) override;
};

} // namespace pixmo::com
