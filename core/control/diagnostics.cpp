#include "core/control/diagnostics.h"

namespace pixmo {

Diagnostics::Diagnostics(MessageBox& box, const Clock& clock)
    : messageBox(box), log(clock), errors(&box), scope_(std::make_shared<ProcedureScope>()) {
    errors.setLog(&log);
    scope_->sourcePrefix = "VellaneInet.ImageView.";
    scope_->errorObject = &errors;
    scope_->messageBox = &box;
}

} // namespace pixmo
