#pragma once

#include "core/control/controlports.h"
#include "faces/com/base/facelink.h"

namespace pixmo::com {

/// The control's questions that the system answers without the control's windows and transfers.
ControlPorts systemPorts(const SharedFaceLink& link);

} // namespace pixmo::com
