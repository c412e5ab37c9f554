#pragma once

#include "core/platform/identity.h"

namespace pixmo::com {

/// As the system says who has logged in at which computer.
class Identity : public pixmo::Identity {
public:
    std::string userName() const override;
    std::string computerName() const override;
};

} // namespace pixmo::com
