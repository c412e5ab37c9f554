#pragma once

#include "core/platform/propertyvalue.h"

#include <string>

namespace pixmo {

/// Port: what hosts the control.
class Container {
public:
    virtual ~Container() = default;

    /// False while the host designs a form.
    virtual bool userMode() const = 0;
    virtual Colour ambientBackColor() const = 0;
    virtual Font ambientFont() const = 0;
    /// Runs a command line in a normal window; asked for in the development environment only.
    virtual void startProgram(const std::string& commandLine) = 0;
    /// False while nobody answers for what drives the control, a page of the web for example: then it writes
    /// no file of its own accord or at the user's command.
    virtual bool mayWriteFiles() const { return true; }
    /// A persisted property has a new value.
    virtual void PropertyChanged(const std::string& name) = 0;
};

} // namespace pixmo
