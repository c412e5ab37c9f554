#pragma once

#include "core/platform/printerdevice.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pixmo {

/// Port: the system's printers, a file to print to among them.
class Printers {
public:
    virtual ~Printers() = default;

    virtual std::vector<std::string> names() const = 0;
    /// Device name of the current printer; "" when there is none.
    virtual std::string currentName() const = 0;
    /// One of the names.
    virtual void setCurrent(const std::string& name) = 0;
    /// Lets the user choose; the chosen name, none when cancelled. `owner` is the face's window, `flags` the
    /// system dialog's.
    virtual std::optional<std::string> choose(intptr_t owner, int32_t flags) = 0;
    /// The current printer, opened; nullptr when it cannot be.
    virtual std::unique_ptr<PrinterDevice> open() = 0;
};

} // namespace pixmo
