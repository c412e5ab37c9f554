#pragma once

#include "core/control/imageview.h"
#include "core/drawing/palette.h"

namespace pixmo {

/// Paints what the view shows: the page with the rubber band, veiled or gone while it is not the current one
/// (see ImageView::viewNotice, whose text a face writes on top), and a frame while the view has the keyboard.
void paintView(ImageView& control, const PixelSurface& surface, const Palette& palette, bool focused);

} // namespace pixmo
