#pragma once

#include "core/platform/container.h"
#include "faces/qt/ports/facelink.h"

namespace pixmo::qt {

/// The widget as the container of its control: always running, coloured and lettered as its surroundings.
class Container : public pixmo::Container {
public:
    explicit Container(SharedFaceLink link) : link_(std::move(link)) {}

    bool userMode() const override { return true; }
    Colour ambientBackColor() const override;
    Font ambientFont() const override { return {}; }
    void startProgram(const std::string& commandLine) override;
    void PropertyChanged(const std::string& name) override;

private:
    SharedFaceLink link_;
};

} // namespace pixmo::qt
