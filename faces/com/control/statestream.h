#pragma once

#include "faces/com/control/controlcontext.h"

#include <objidl.h>
#include <ocidl.h>

namespace pixmo::com {

/// The whole state of the control to and from a stream: a length (32 bits) and the bytes of PropertyState.
void saveState(ControlContext& context, IStream& stream);
void loadState(ControlContext& context, IStream& stream);

} // namespace pixmo::com
