#pragma once

#include "core/platform/printers.h"
#include "faces/com/base/facelink.h"
#include "faces/com/printing/devicemode.h"

#include <string>

namespace pixmo::com {

/// The printers that the system has for this user.
class Printers : public pixmo::Printers {
public:
    explicit Printers(SharedFaceLink link) : link_(std::move(link)) {}

    std::vector<std::string> names() const override;
    std::string currentName() const override;
    void setCurrent(const std::string& name) override;
    /// By the system's print dialog. What the user sets there for the printer holds as long as it is current.
    std::optional<std::string> choose(intptr_t owner, int32_t flags) override;
    std::unique_ptr<pixmo::PrinterDevice> open() override;

private:
    SharedFaceLink link_;
    std::string current_; ///< "": the user's usual one
    std::string chosen_;  ///< to which the mode belongs
    DeviceMode mode_;
};

} // namespace pixmo::com
