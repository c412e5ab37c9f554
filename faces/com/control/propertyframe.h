#pragma once

#include "faces/com/control/controlcontext.h"

namespace pixmo::com {

/// The window with the property page, unless the container shows one of its own.
HRESULT showPropertyFrame(ControlContext& context, HWND parent);

} // namespace pixmo::com
