#pragma once

#include "core/control/controlevents.h"
#include "core/control/controlports.h"
#include "core/control/propertyvalues.h"
#include "core/control/sessionstate.h"
#include "core/diag/cerrobject.h"
#include "core/diag/clogevent.h"
#include "core/diag/cutilities.h"
#include "core/diag/procedure.h"
#include "core/imaging/cleadimagefunctions.h"
#include "core/imaging/rasterview.h"
#include "core/protocol/cclienthandlers.h"
#include "core/thumbs/thumbnailwindow.h"

#include <functional>
#include <memory>
#include <string>

namespace pixmo {

/// What the classes of one control share.
struct ControlParts {
    explicit ControlParts(ControlPorts controlPorts);

    ControlPorts ports;
    cLogEvent log;
    cErrObject errors;
    cUtilities utilities;
    cClientHandlers packager2;
    RasterView lvrImage;
    cLeadImageFunctions leadImageHelp;
    std::shared_ptr<ProcedureScope> scope; ///< source prefix "VellaneInet.ImageView."
    PropertyValues properties;
    SessionState session;
    TransferProgress progress;
    PrintingState printing;
    ControlEvents events;
    ThumbnailWindow* fThumbNails = nullptr;
    Pointer mousePointer = Pointer::Default;
    bool inIDE = cUtilities::InIDE(); ///< whether failed transfers are shown to a developer
    std::function<void()> updateUI;

    Procedure procedure(const char* name, Buttons buttons = Buttons::RetryCancel) const {
        return {scope, name, buttons};
    }
    bool ended() const { return scope->ended; }
    /// The view shows the picture of the current page.
    bool isPageDisplayed() const;
    /// A progress or detail line.
    void logLine(const std::string& text) { log.LogEvent(text, log_level::Information); }
    void showPointer(Pointer pointer);
    cClientHandlers::Sender sender() const;
};

} // namespace pixmo
