#include "core/control/layout.h"

#include <algorithm>

namespace pixmo {

ControlLayout layOut(const LayoutMeasures& m) {
    const int32_t width = std::max(m.width, 0);
    const int32_t height = std::max(m.height, 0);
    const int32_t toolbarHeight = std::min(m.toolbarHeight, height);
    const int32_t statusHeight = std::min(m.statusHeight, height - toolbarHeight);
    const int32_t between = height - toolbarHeight - statusHeight;
    const int32_t debugHeight = m.debugShown ? between / 4 : 0;
    const int32_t statusTop = height - statusHeight;

    ControlLayout layout;
    layout.toolbar = {0, 0, width, toolbarHeight};
    layout.view = {0, toolbarHeight, width, between - debugHeight};
    layout.debug = {0, toolbarHeight + layout.view.height, width, debugHeight};
    const int32_t readOutWidth = std::min(m.readOutWidth, width);
    layout.readOut = {0, statusTop, readOutWidth, statusHeight};
    const int32_t zoomWidth = std::min(m.zoomWidth, width - readOutWidth);
    layout.zoom = {width - zoomWidth, statusTop, zoomWidth, statusHeight};
    const int32_t progressWidth = std::clamp(layout.zoom.left - readOutWidth - 2 * m.gap, 0, m.progressWidth);
    layout.progress = {layout.zoom.left - progressWidth, statusTop, progressWidth, statusHeight};
    const int32_t statusLeft = readOutWidth + m.gap;
    layout.status = {statusLeft, statusTop,
                     std::max(0, layout.progress.left - (progressWidth > 0 ? m.gap : 0) - statusLeft),
                     statusHeight};
    if (m.fromRight)
        for (Box* const box : {&layout.readOut, &layout.status, &layout.progress, &layout.zoom})
            box->left = width - box->left - box->width;
    return layout;
}

} // namespace pixmo
