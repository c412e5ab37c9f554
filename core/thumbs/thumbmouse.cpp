#include "core/thumbs/thumbmouse.h"

#include "core/base/virtualkeys.h"
#include "core/thumbs/dlgthumbs.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace pixmo {

namespace {

constexpr int32_t ScrollInterval = 30; ///< milliseconds
/// A pointer that moved less far in both directions has clicked.
constexpr int32_t DragDistance = 4;
constexpr double LinesANotch = 3;

int32_t whole(double place) {
    return static_cast<int32_t>(std::floor(place));
}

} // namespace

ThumbMouse::ThumbMouse(dlgThumbs& thumbs, TimerFactory& timers)
    : thumbs_(thumbs), tmrScroll_(timers.createTimer([this] {
          const auto held = thumbs_.weak_from_this().lock();
          scrollWithBand();
      })) {
    tmrScroll_->setInterval(ScrollInterval);
}

void ThumbMouse::press(int32_t button, double x, double y, int16_t shift) {
    const int16_t page = thumbs_.pageAt(x, y);
    if (button == mouse_button::Right && page > 0 && !thumbs_.selection().isSelected(page - 1))
        thumbs_.click(whole(x), whole(y), 0);
    if (button != mouse_button::Left)
        return;
    pressed_ = true;
    fromX_ = x_ = whole(x);
    fromY_ = y_ = whole(y);
    fromShift_ = shift;
    if (page > 0)
        thumbs_.click(x_, y_, shift);
    else
        startBand();
}

void ThumbMouse::startBand() {
    thumbs_.bandStart(fromX_, fromY_, fromShift_);
    tmrScroll_->start();
}

void ThumbMouse::move(double x, double y) {
    if (!pressed_)
        return;
    x_ = whole(x);
    y_ = whole(y);
    const bool dragged = std::abs(x_ - fromX_) >= DragDistance || std::abs(y_ - fromY_) >= DragDistance;
    if (!thumbs_.isBandShown() && dragged)
        startBand();
    thumbs_.bandMove(x_, y_);
}

/// The farther beyond the edge, the faster.
void ThumbMouse::scrollWithBand() {
    const int32_t bottom = thumbs_.grid().viewport().height;
    const int32_t beyond = y_ < 0 ? y_ : std::max(0, y_ - bottom);
    if (beyond == 0)
        return;
    thumbs_.scrollTo(thumbs_.grid().scrollPosition() + beyond / 2);
    thumbs_.bandMove(x_, y_);
}

void ThumbMouse::release() {
    pressed_ = false;
    tmrScroll_->stop();
    if (thumbs_.isBandShown())
        thumbs_.bandEnd();
}

void ThumbMouse::doubleClick(int32_t button, double x, double y) {
    if (button == mouse_button::Left)
        thumbs_.doubleClick(whole(x), whole(y));
}

void ThumbMouse::wheel(double notches, int16_t shift) {
    if ((shift & shift_key::Ctrl) != 0) {
        sizeRest_ += notches;
        const auto steps = static_cast<int32_t>(std::trunc(sizeRest_));
        sizeRest_ -= steps;
        for (int32_t step = 0; step < std::abs(steps); ++step)
            steps > 0 ? thumbs_.larger() : thumbs_.smaller();
        return;
    }
    // A turn shows nothing less than the next windowful.
    const double windowful = thumbs_.grid().pageStep();
    scrollRest_ -= std::clamp(notches * LinesANotch * thumbs_.grid().lineStep(), -windowful, windowful);
    const auto distance = static_cast<int32_t>(std::trunc(scrollRest_));
    scrollRest_ -= distance;
    thumbs_.scrollTo(thumbs_.grid().scrollPosition() + distance);
}

} // namespace pixmo
