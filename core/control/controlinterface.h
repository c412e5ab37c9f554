#pragma once

#include "core/platform/viewsurface.h"

namespace pixmo {

/// What the user sees of the control beside the page, as the control's classes need it.
class ControlInterface {
public:
    virtual ~ControlInterface() = default;
    /// Toolbar, thumbnails, read-out and status follow what has changed.
    virtual void UpdateUI() = 0;
    virtual void showPointer(Pointer pointer) = 0;
};

} // namespace pixmo
