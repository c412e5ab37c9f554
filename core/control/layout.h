#pragma once

#include "core/raster/rectangle.h"

#include <cstdint>

namespace pixmo {

/// What the face measures, in device pixels but for the scale.
struct LayoutMeasures {
    int32_t width = 0;
    int32_t height = 0;
    int32_t toolbarHeight = 0; ///< 0 hides the toolbar
    int32_t textHeight = 0;    ///< of a line of text; 0 hides the status line
    int32_t readOutWidth = 0;  ///< of the text of `txtPage`
    int32_t zoomWidth = 0;     ///< of the text of the zoom; 0 hides it
    bool progressShown = false;
    bool debugShown = false;
    bool fromRight = false; ///< the status line is read from its right end
    double scale = 1;       ///< device pixels in a device-independent one
};

/// Where the children of the control go, origin at the control's upper left corner. The texts of the status
/// line have margins beside them.
struct ControlLayout {
    Rectangle toolbar;
    Rectangle view;
    Rectangle debug;
    Rectangle readOut;
    Rectangle status;
    Rectangle progress; ///< empty: it is not shown
    Rectangle zoom;
};

/// The height of the status row, which is one line of text with its margins; 0 where there is no text.
int32_t statusHeight(const LayoutMeasures& measures);

/// The toolbar on top, the status line at the bottom, the view between them. The status line has the page
/// read-out at its left end and the zoom at its right end, or the other way round. The view keeps no less
/// than nothing; what does not fit is cut from the bottom up.
ControlLayout layOut(const LayoutMeasures& measures);

} // namespace pixmo
