#pragma once

#include "core/platform/container.h"
#include "faces/com/base/facelink.h"

namespace pixmo::com {

/// What hosts the control, as the host of the face says.
class Container : public pixmo::Container {
public:
    explicit Container(SharedFaceLink link) : link_(std::move(link)) {}

    bool userMode() const override;
    Colour ambientBackColor() const override;
    Font ambientFont() const override;
    void startProgram(const std::string& commandLine) override;
    bool mayWriteFiles() const override;
    void PropertyChanged(const std::string& name) override;

private:
    SharedFaceLink link_;
};

} // namespace pixmo::com
