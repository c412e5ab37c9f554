#pragma once

#include "core/platform/timer.h"

#include <cstdint>
#include <memory>

namespace pixmo {

class dlgThumbs;

/// The mouse over the thumbnails: clicks that select, rubber bands, the wheel. Positions are pixels of the
/// window as its ThumbGrid counts them, and may lie beyond its edges while a button is held.
class ThumbMouse {
public:
    /// Owned by the window; a timer of its own scrolls while a band is drawn beyond an edge.
    ThumbMouse(dlgThumbs& thumbs, TimerFactory& timers);

    /// The left button clicks a page, or begins a band beside the pages. The right one, before a menu opens,
    /// selects a page that is not selected yet.
    void press(int32_t button, double x, double y, int16_t shift);
    void move(double x, double y);
    /// The left button was let go, or the mouse was taken away.
    void release();
    void doubleClick(int32_t button, double x, double y);
    /// Up positive: scrolls; with Ctrl a whole notch makes the thumbnails larger or smaller.
    void wheel(double notches, int16_t shift);

private:
    void startBand();
    void scrollWithBand();

    dlgThumbs& thumbs_;
    std::unique_ptr<Timer> tmrScroll_;
    bool pressed_ = false;
    int32_t fromX_ = 0;
    int32_t fromY_ = 0;
    int16_t fromShift_ = 0;
    int32_t x_ = 0;
    int32_t y_ = 0;
    double sizeRest_ = 0;   ///< parts of a notch that made no step yet
    double scrollRest_ = 0; ///< parts of a pixel that scrolling still owes
};

} // namespace pixmo
