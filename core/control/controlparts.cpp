#include "core/control/controlparts.h"

#include <utility>

namespace pixmo {

ControlParts::ControlParts(ControlPorts controlPorts)
    : ports(std::move(controlPorts)), log(*ports.clock), errors(ports.messageBox.get()),
      lvrImage(*ports.viewSurface), leadImageHelp(errors, lvrImage, *ports.decoder),
      scope(std::make_shared<ProcedureScope>()) {
    errors.setLog(&log);
    scope->sourcePrefix = "VellaneInet.ImageView.";
    scope->errorObject = &errors;
    scope->messageBox = ports.messageBox.get();
}

void ControlParts::showPointer(Pointer pointer) {
    mousePointer = pointer;
    lvrImage.setPointer(static_cast<int32_t>(pointer));
}

} // namespace pixmo
