#pragma once

#include <oaidl.h>
#include <span>

namespace pixmo::com {

/// An ambient property as the control's own host runtime names it.
struct AmbientName {
    DISPID id;
    const char* name;
};

std::span<const AmbientName> ambientNames();

} // namespace pixmo::com
