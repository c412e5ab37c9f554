#pragma once

#include "core/imaging/viewgeometry.h"

#include <cstdint>
#include <windows.h>

namespace pixmo::com {

/// What a scroll bar of the system shows of the core's; it stays there with nothing to scroll.
inline SCROLLINFO scrollInfoOf(const ScrollBar& bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    info.nMax = bar.maximum + bar.pageStep - 1;
    info.nPage = static_cast<UINT>(bar.pageStep);
    info.nPos = bar.position;
    return info;
}

/// Where a request of a scroll bar (SB_...) leads.
int32_t scrolledTo(HWND window, int which, const ScrollBar& bar, WORD request);

} // namespace pixmo::com
