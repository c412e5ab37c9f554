#pragma once

#include "core/platform/identity.h"

namespace pixmo::qt {

/// As the system's accounts and host name say.
class Identity : public pixmo::Identity {
public:
    std::string userName() const override;
    std::string computerName() const override;
};

} // namespace pixmo::qt
