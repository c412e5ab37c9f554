#pragma once

#include "core/control/imageview.h"
#include "core/drawing/palette.h"
#include "core/drawing/textrun.h"

#include <vector>

namespace pixmo {

/// Paints what the view shows: the page with the rubber band, veiled or gone while it is not the current one
/// (see ImageView::viewNotice), and a frame while the view has the keyboard. The notice's plate is painted,
/// its text is left to the face.
std::vector<TextRun> paintView(ImageView& control, const PixelSurface& surface, const Palette& palette,
                               bool focused, const TextMeasure& measure);

} // namespace pixmo
