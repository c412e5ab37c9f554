#pragma once

#include "core/platform/propertyvalue.h"
#include "faces/com/base/comptr.h"

#include <ocidl.h>

namespace pixmo::com {

Font fontOf(IFont& font);

/// A font object of the host runtime's kind. An empty name gives the name of the system's dialog font.
/// Throws when the system cannot make one.
ComPtr<IFontDisp> makeFontObject(const Font& font);

} // namespace pixmo::com
