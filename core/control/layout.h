#pragma once

#include <cstdint>

namespace pixmo {

/// In whatever pixels the face measures, origin at the control's upper left corner.
struct Box {
    int32_t left = 0;
    int32_t top = 0;
    int32_t width = 0;
    int32_t height = 0;
    bool operator==(const Box&) const = default;
};

/// What the face measures.
struct LayoutMeasures {
    int32_t width = 0;
    int32_t height = 0;
    int32_t toolbarHeight = 0; ///< 0 hides the toolbar
    int32_t readOutWidth = 0;  ///< of the text of `txtPage`
    int32_t statusHeight = 0;  ///< of one line of text with its margins; 0 hides the status line
    int32_t progressWidth = 0; ///< 0 hides the progress bar
    int32_t zoomWidth = 0;     ///< of the text of the zoom; 0 hides it
    bool debugShown = false;
    int32_t gap = 6;        ///< between the fields of the status line
    bool fromRight = false; ///< the status line is read from its right end
};

/// Where the children of the control go.
struct ControlLayout {
    Box toolbar;
    Box view;
    Box debug;
    Box readOut;
    Box status;
    Box progress;
    Box zoom;
};

/// The toolbar on top, the status line at the bottom, the view between them. The status line has the page
/// read-out at its left end and the zoom at its right end, or the other way round. The view keeps no less
/// than nothing; what does not fit is cut from the bottom up.
ControlLayout layOut(const LayoutMeasures& measures);

} // namespace pixmo
