#include "core/control/viewmouse.h"

#include <algorithm>
#include <cmath>

namespace pixmo {

namespace {

constexpr double LeastGestureZoom = 2;   ///< percent
constexpr double MostGestureZoom = 1600; ///< percent
constexpr double LinesANotch = 3;
constexpr double ZoomANotch = 1.1;
/// A rubber band smaller than this (device-independent pixels) was a click.
constexpr double SmallestBand = 4;

} // namespace

void ViewMouse::lvrImage_MouseDown(int32_t button, double x, double y) {
    const bool pans = button == mouse_button::Middle || (button == mouse_button::Left && lvrImage_.dragMode);
    const bool selects = button == mouse_button::Left && !lvrImage_.dragMode;
    if (isDragging() || (!pans && !selects) || !session_.isPageDisplayed())
        return;
    drag_ = pans ? Drag::Pan : Drag::Select;
    fromX_ = x;
    fromY_ = y;
    fromScrollX_ = lvrImage_.horizontalBar().position;
    fromScrollY_ = lvrImage_.verticalBar().position;
    lvrImage_.rubberBand = {x, y, 0, 0};
    leadImageHelp_.EventHandler_MouseDown(pans, selects, false);
}

void ViewMouse::lvrImage_MouseMove(double x, double y) {
    if (drag_ == Drag::Pan)
        lvrImage_.scrollTo(fromScrollX_ + static_cast<int32_t>(std::lround(fromX_ - x)),
                           fromScrollY_ + static_cast<int32_t>(std::lround(fromY_ - y)));
    else if (drag_ == Drag::Select)
        drawBand(x, y);
}

void ViewMouse::drawBand(double x, double y) {
    const Size view = lvrImage_.geometry().viewport();
    const double toX = std::clamp(x, 0.0, 0.0 + view.width);
    const double toY = std::clamp(y, 0.0, 0.0 + view.height);
    lvrImage_.rubberBand = {std::min(fromX_, toX), std::min(fromY_, toY), std::abs(toX - fromX_),
                            std::abs(toY - fromY_)};
    lvrImage_.repaint();
}

void ViewMouse::lvrImage_MouseUp(double x, double y) {
    if (drag_ == Drag::None)
        return;
    lvrImage_MouseMove(x, y);
    const bool selected = drag_ == Drag::Select;
    endDrag();
    const RealRectangle& band = lvrImage_.rubberBand;
    const double smallest = SmallestBand * surface_.devicePixelRatio();
    if (selected && band.width >= smallest && band.height >= smallest && session_.isPageDisplayed())
        leadImageHelp_.EventHandler_RubberBand();
}

void ViewMouse::release(int32_t button, double x, double y) {
    const Size view = lvrImage_.geometry().viewport();
    lvrImage_MouseUp(x, y);
    if (button == mouse_button::Left && x >= 0 && y >= 0 && x < view.width && y < view.height)
        Clicked.raise();
}

void ViewMouse::cancelDrag() {
    if (drag_ == Drag::None)
        return;
    if (drag_ == Drag::Pan)
        lvrImage_.scrollTo(fromScrollX_, fromScrollY_);
    endDrag();
}

void ViewMouse::endDrag() {
    const bool pans = drag_ == Drag::Pan;
    drag_ = Drag::None;
    lvrImage_.rubberBandActive = false;
    leadImageHelp_.EventHandler_MouseUp(pans, !pans);
    lvrImage_.repaint();
    dragEnded_();
}

void ViewMouse::lvrImage_MouseWheel(double notchesX, double notchesY, int16_t shift, double x, double y) {
    if ((shift & shift_key::Ctrl) != 0) {
        zoomByGesture(std::pow(ZoomANotch, notchesY), x, y);
        return;
    }
    const double lineX = LinesANotch * lvrImage_.horizontalBar().lineStep;
    const double lineY = LinesANotch * lvrImage_.verticalBar().lineStep;
    if ((shift & shift_key::Shift) != 0)
        scrollPixels(-(notchesX + notchesY) * lineX, 0);
    else
        scrollPixels(-notchesX * lineX, -notchesY * lineY);
}

void ViewMouse::scrollPixels(double dx, double dy) {
    if (!session_.isPageDisplayed())
        return;
    restX_ += dx;
    restY_ += dy;
    const double wholeX = std::trunc(restX_);
    const double wholeY = std::trunc(restY_);
    restX_ -= wholeX;
    restY_ -= wholeY;
    lvrImage_.scrollBy(static_cast<int32_t>(wholeX), static_cast<int32_t>(wholeY));
}

void ViewMouse::zoomByGesture(double factor, double x, double y) {
    if (!session_.isPageDisplayed() || !(factor > 0))
        return;
    const double now = lvrImage_.zoom();
    const double least = std::min(LeastGestureZoom, now);
    const double most = std::max(MostGestureZoom, now);
    const double wanted = std::clamp(now * factor, least, most);
    if (wanted != now)
        lvrImage_.zoomAt(static_cast<float>(wanted), x, y);
}

} // namespace pixmo
