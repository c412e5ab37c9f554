#pragma once

#include "core/platform/dialog.h"

#include <functional>
#include <windows.h>

namespace pixmo::com {

/// Distributes the room of a window among the parts that a description puts side by side and one below the
/// other. All lengths are device pixels.
class DialogLayout {
public:
    struct Measures {
        LONG gap = 0;        ///< between parts
        LONG optionGap = 0;  ///< between options, one below the other
        LONG buttonsGap = 0; ///< above the buttons that end the window
        LONG frameSide = 0;  ///< from a frame's border to what is in it
        LONG frameTop = 0;
        LONG frameBottom = 0;
    };

    /// What a field needs at least.
    std::function<SIZE(const DialogPart&)> fieldSize;
    /// Where a field or a frame is now; none: it is not to be seen.
    std::function<void(const DialogPart&, const RECT*)> put;
    Measures measures;

    SIZE least(const DialogPart& part) const;
    void place(const DialogPart& part, const RECT& area) const;
    /// A group has parts and, but for a frame, no control of its own.
    static bool isGroup(const DialogPart& part);

private:
    LONG gapBefore(const DialogPart& group, const DialogPart& part) const;
    RECT inside(const DialogPart& group, RECT area) const;
    RECT placeOf(const DialogPart& group, const DialogPart& part, const RECT& room) const;
    void hide(const DialogPart& part) const;
};

} // namespace pixmo::com
