#include "core/control/controlparts.h"

#include <utility>

namespace pixmo {

ControlParts::ControlParts(ControlPorts controlPorts)
    : ports(std::move(controlPorts)), log(*ports.clock), errors(ports.messageBox.get()),
      utilities(ports.identity.get()), packager2(errors), lvrImage(*ports.viewSurface),
      leadImageHelp(errors, lvrImage, *ports.decoder), scope(std::make_shared<ProcedureScope>()) {
    errors.setLog(&log);
    utilities.setERRR(&errors);
    scope->sourcePrefix = "VellaneInet.ImageView.";
    scope->errorObject = &errors;
    scope->messageBox = ports.messageBox.get();
}

void ControlParts::showPointer(Pointer pointer) {
    mousePointer = pointer;
    lvrImage.setPointer(static_cast<int32_t>(pointer));
}

bool ControlParts::isPageDisplayed() const {
    return session.shownPage != 0 && session.shownPage == session.currentPage && lvrImage.hasPicture();
}

cClientHandlers::Sender ControlParts::sender() const {
    return {properties.Delimiter, properties.PublicKey, properties.UserLogin, properties.MachineName};
}

} // namespace pixmo
