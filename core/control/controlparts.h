#pragma once

#include "core/control/controlevents.h"
#include "core/control/controlports.h"
#include "core/control/propertyvalues.h"
#include "core/diag/cerrobject.h"
#include "core/diag/clogevent.h"
#include "core/diag/procedure.h"
#include "core/imaging/cleadimagefunctions.h"
#include "core/imaging/rasterview.h"

#include <functional>
#include <memory>
#include <string>

namespace pixmo {

/// What every class of one control works with: the answers of the face, the error convention with its log,
/// the view and what draws into it, the stored properties and the events for the host.
struct ControlParts {
    explicit ControlParts(ControlPorts controlPorts);

    ControlPorts ports;
    cLogEvent log;
    cErrObject errors;
    RasterView lvrImage;
    cLeadImageFunctions leadImageHelp;
    std::shared_ptr<ProcedureScope> scope; ///< source prefix "VellaneInet.ImageView."
    PropertyValues properties;
    ControlEvents events;
    Pointer mousePointer = Pointer::Default;
    std::function<void()> updateUI;

    Procedure procedure(const char* name, Buttons buttons = Buttons::RetryCancel) const {
        return {scope, name, buttons};
    }
    bool ended() const { return scope->ended; }
    /// A progress or detail line.
    void logLine(const std::string& text) { log.LogEvent(text, log_level::Information); }
    void showPointer(Pointer pointer);
};

} // namespace pixmo
