#include "faces/com/windows/scrolling.h"

namespace pixmo::com {

namespace {

/// Where the thumb is that the user holds.
int32_t trackPosition(HWND window, int which) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    GetScrollInfo(window, which, &info);
    return info.nTrackPos;
}

} // namespace

int32_t scrolledTo(HWND window, int which, const ScrollBar& bar, WORD request) {
    switch (request) {
    case SB_LINEUP:
        return bar.position - bar.lineStep;
    case SB_LINEDOWN:
        return bar.position + bar.lineStep;
    case SB_PAGEUP:
        return bar.position - bar.pageStep;
    case SB_PAGEDOWN:
        return bar.position + bar.pageStep;
    case SB_TOP:
        return 0;
    case SB_BOTTOM:
        return bar.maximum;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        return trackPosition(window, which);
    default:
        return bar.position;
    }
}

} // namespace pixmo::com
