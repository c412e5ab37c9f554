#pragma once

#include "core/control/imageview.h"

#include <windows.h>

namespace pixmo::com {

/// Draws the control's page, as large as fits, or what is to be read in its place, within the bounds (in the
/// target's logical units): for a host that prints or caches the control's picture. Needs no window; the
/// target may be a metafile's or a printer's.
void drawControl(ImageView& control, HDC target, const RECT& bounds);

} // namespace pixmo::com
