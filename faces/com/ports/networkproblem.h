#pragma once

#include "core/control/download.h"

#include <windows.h>

namespace pixmo::com {

/// What a binding ended with. `detail` is the network's own error number, 0 when there is none.
NetworkProblem networkProblem(HRESULT result, DWORD detail);

} // namespace pixmo::com
