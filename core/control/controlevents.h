#pragma once

#include "core/base/event.h"

#include <cstdint>
#include <string>

namespace pixmo {

/// What the control tells its host, in the order of its event interface.
struct ControlEvents {
    Event<> Click;
    Event<> DblClick;
    Event<int16_t&, int16_t&> KeyDown;                       ///< KeyCode, Shift
    Event<int16_t&> KeyPress;                                ///< KeyAscii
    Event<int16_t&, int16_t&> KeyUp;                         ///< KeyCode, Shift
    Event<int16_t, const std::string&, bool&> PrintJobBegin; ///< Pages, Data, CancelJob
    Event<int16_t, const std::string&, const std::string&, bool&>
        PrintJobBeginEX; ///< Pages, SelectedPages, Data, CancelJob
    Event<int16_t, const std::string&> PrintJobFinish;
    Event<int32_t, int32_t> PageChanged;       ///< document, page; 0, 0 when cleared
    Event<int32_t, int32_t> BookmarkRequested; ///< document, page
};

} // namespace pixmo
