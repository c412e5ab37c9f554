#pragma once

#include "faces/com/base/comptr.h"

#include <oaidl.h>
#include <string>

namespace pixmo::script {

/// From now on the object's default events call the script's procedures: the prefix and the event's name.
/// Arguments that come by reference reach the script as variables of its own, and come back. Throws when the
/// object has no events.
void connectEvents(IUnknown& object, const com::ComPtr<IDispatch>& script, const std::wstring& prefix);

} // namespace pixmo::script
