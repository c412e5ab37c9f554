#pragma once

#include "faces/com/base/comptr.h"

#include <oaidl.h>

namespace pixmo::com {

/// The type library inside of this module: it needs no registration.
ComPtr<ITypeLib> loadTypeLibrary();

/// Throws when the library does not describe it.
ComPtr<ITypeInfo> typeInfoOf(REFGUID described);

} // namespace pixmo::com
