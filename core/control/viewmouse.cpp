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
    const bool pans =
        button == mouse_button::Middle || (button == mouse_button::Left && parts_.lvrImage.dragMode);
    const bool selects = button == mouse_button::Left && !parts_.lvrImage.dragMode;
    if (isDragging() || (!pans && !selects) || !parts_.isPageDisplayed())
        return;
    drag_ = pans ? Drag::Pan : Drag::Select;
    fromX_ = x;
    fromY_ = y;
    fromScrollX_ = parts_.lvrImage.horizontalBar().position;
    fromScrollY_ = parts_.lvrImage.verticalBar().position;
    parts_.lvrImage.rubberBand = {x, y, 0, 0};
    parts_.leadImageHelp.EventHandler_MouseDown(pans, selects, false);
}

void ViewMouse::lvrImage_MouseMove(double x, double y) {
    if (drag_ == Drag::Pan)
        parts_.lvrImage.scrollTo(fromScrollX_ + static_cast<int32_t>(std::lround(fromX_ - x)),
                                 fromScrollY_ + static_cast<int32_t>(std::lround(fromY_ - y)));
    else if (drag_ == Drag::Select)
        drawBand(x, y);
}

void ViewMouse::drawBand(double x, double y) {
    const Size view = parts_.lvrImage.geometry().viewport();
    const double toX = std::clamp(x, 0.0, 0.0 + view.width);
    const double toY = std::clamp(y, 0.0, 0.0 + view.height);
    parts_.lvrImage.rubberBand = {std::min(fromX_, toX), std::min(fromY_, toY), std::abs(toX - fromX_),
                                  std::abs(toY - fromY_)};
    parts_.lvrImage.repaint();
}

void ViewMouse::lvrImage_MouseUp(double x, double y) {
    if (drag_ == Drag::None)
        return;
    lvrImage_MouseMove(x, y);
    const bool selected = drag_ == Drag::Select;
    endDrag();
    const RealRectangle& band = parts_.lvrImage.rubberBand;
    const double smallest = SmallestBand * parts_.ports.viewSurface->devicePixelRatio();
    if (selected && band.width >= smallest && band.height >= smallest && parts_.isPageDisplayed())
        parts_.leadImageHelp.EventHandler_RubberBand();
}

void ViewMouse::release(int32_t button, double x, double y) {
    const Size view = parts_.lvrImage.geometry().viewport();
    lvrImage_MouseUp(x, y);
    if (button == mouse_button::Left && x >= 0 && y >= 0 && x < view.width && y < view.height)
        Clicked.raise();
}

void ViewMouse::cancelDrag() {
    if (drag_ == Drag::None)
        return;
    if (drag_ == Drag::Pan)
        parts_.lvrImage.scrollTo(fromScrollX_, fromScrollY_);
    endDrag();
}

void ViewMouse::endDrag() {
    const bool pans = drag_ == Drag::Pan;
    drag_ = Drag::None;
    parts_.lvrImage.rubberBandActive = false;
    parts_.leadImageHelp.EventHandler_MouseUp(pans, !pans);
    parts_.lvrImage.repaint();
    parts_.updateUI();
}

void ViewMouse::lvrImage_MouseWheel(double notchesX, double notchesY, int16_t shift, double x, double y) {
    if ((shift & shift_key::Ctrl) != 0) {
        zoomByGesture(std::pow(ZoomANotch, notchesY), x, y);
        return;
    }
    const double lineX = LinesANotch * parts_.lvrImage.horizontalBar().lineStep;
    const double lineY = LinesANotch * parts_.lvrImage.verticalBar().lineStep;
    if ((shift & shift_key::Shift) != 0)
        scrollPixels(-(notchesX + notchesY) * lineX, 0);
    else
        scrollPixels(-notchesX * lineX, -notchesY * lineY);
}

void ViewMouse::scrollPixels(double dx, double dy) {
    if (!parts_.isPageDisplayed())
        return;
    restX_ += dx;
    restY_ += dy;
    const double wholeX = std::trunc(restX_);
    const double wholeY = std::trunc(restY_);
    restX_ -= wholeX;
    restY_ -= wholeY;
    parts_.lvrImage.scrollBy(static_cast<int32_t>(wholeX), static_cast<int32_t>(wholeY));
}

void ViewMouse::zoomByGesture(double factor, double x, double y) {
    if (!parts_.isPageDisplayed() || !(factor > 0))
        return;
    const double now = parts_.lvrImage.zoom();
    const double least = std::min(LeastGestureZoom, now);
    const double most = std::max(MostGestureZoom, now);
    const double wanted = std::clamp(now * factor, least, most);
    if (wanted != now)
        parts_.lvrImage.zoomAt(static_cast<float>(wanted), x, y);
}

} // namespace pixmo
