#pragma once

#include <span>
#include <string>
#include <windows.h>

namespace pixmo::com {

/// One value in the registry. An empty name means the key's own value; a key without values of its own has a
/// row without value.
struct RegistryRow {
    std::wstring key; ///< below Software\Classes
    std::wstring name;
    std::wstring value;
    bool hasValue = true;
};

/// Writes all rows below Software\Classes of the root (HKEY_LOCAL_MACHINE, or HKEY_CURRENT_USER for one
/// user); after a failure none of them is left.
HRESULT writeRegistry(HKEY root, std::span<const RegistryRow> rows);

/// Removes the rows' values, and then every key on their way that is left empty. What is not there is no
/// failure.
HRESULT removeFromRegistry(HKEY root, std::span<const RegistryRow> rows);

} // namespace pixmo::com
