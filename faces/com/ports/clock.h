#pragma once

#include "core/platform/clock.h"

namespace pixmo::com {

/// Dates and times in the form that the user has set in the system.
class Clock : public pixmo::Clock {
public:
    std::string generalDate() const override;
};

} // namespace pixmo::com
