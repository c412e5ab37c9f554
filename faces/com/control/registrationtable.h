#pragma once

#include "faces/com/base/registration.h"

#include <string>
#include <vector>

namespace pixmo::com {

/// All that the library has in the registry. `module` is its file.
std::vector<RegistryRow> registrationTable(const std::wstring& module);

} // namespace pixmo::com
