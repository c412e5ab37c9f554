#pragma once

#include <string>

namespace pixmo {

/// Port: who is at which machine. May throw.
class Identity {
public:
    virtual ~Identity() = default;

    virtual std::string userName() const = 0;
    virtual std::string computerName() const = 0;
};

} // namespace pixmo
