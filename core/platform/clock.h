#pragma once

#include <string>

namespace pixmo {

/// Port: what time it is.
class Clock {
public:
    virtual ~Clock() = default;

    /// Present local date and time in the system's general form, UTF-8, meant to fit in 30 characters.
    virtual std::string generalDate() const = 0;
};

/// By the C library: the form of the process's locale, year-month-day in the "C" locale.
class SystemClock : public Clock {
public:
    std::string generalDate() const override;
};

} // namespace pixmo
