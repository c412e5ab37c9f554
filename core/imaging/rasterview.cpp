#include "core/imaging/rasterview.h"

#include "core/base/error.h"
#include "core/imaging/reducer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pixmo {

namespace {

RealRectangle real(const Rectangle& r) {
    return {0.0 + r.left, 0.0 + r.top, 0.0 + r.width, 0.0 + r.height};
}

bool isWithin(double value, double limit) {
    return std::abs(value) <= limit;
}

/// Coordinates come back from outside, perhaps from another view: what no view can show is not taken over.
bool canBePlace(const RealRectangle& r) {
    constexpr double limit = 1 << 28;
    return isWithin(r.left, limit) && isWithin(r.top, limit) && isWithin(r.width, limit) &&
           isWithin(r.height, limit);
}

void checkZoom(float percent) {
    if (!std::isfinite(percent) || percent <= 0)
        throw invalidPropertyValueError();
}

} // namespace

RasterView::RasterView(ViewSurface& surface) : surface_(surface) {
    geometry_.setViewport({surface_.width(), surface_.height()}, dotsPerInch());
}

/// Tells the surface and the owner if the change made a difference.
template <typename Change>
void RasterView::change(const Change& change) {
    const ViewGeometry before = geometry_;
    change();
    if (geometry_ == before)
        return;
    repaint();
    Changed.raise();
}

void RasterView::setRaster(Raster raster) {
    composer_.forget();
    quarterTurns_ = 0;
    raster_ = std::move(raster);
    geometry_.setPicture({raster_.width, raster_.height}, raster_.xResolution, raster_.yResolution);
    repaint();
    Changed.raise();
}

void RasterView::clear() {
    setRaster(Raster());
}

void RasterView::rotate(Turn turn) {
    if (!hasPicture())
        return;
    raster_ = rotated(raster_, turn);
    quarterTurns_ += turn == Turn::Right ? 1 : turn == Turn::Half ? 2 : 3;
    composer_.forget();
    geometry_.turnPicture(turn);
    repaint();
    Changed.raise();
}

void RasterView::resize() {
    change([&] { geometry_.setViewport({surface_.width(), surface_.height()}, dotsPerInch()); });
}

void RasterView::setSurfaceResolution(std::optional<double> dotsPerInch) {
    if (dotsPerInch && !(*dotsPerInch > 0 && std::isfinite(*dotsPerInch)))
        throw invalidPropertyValueError();
    surfaceResolution_ = dotsPerInch;
    resize();
}

double RasterView::dotsPerInch() const {
    return surfaceResolution_.value_or(96 * surface_.devicePixelRatio());
}

void RasterView::setSizeMode(SizeMode mode) {
    switch (mode) {
    case SizeMode::FitWidth:
        fitWidth();
        return;
    case SizeMode::FitBest:
        fitBest();
        return;
    case SizeMode::Zoom:
        setZoom(zoom());
        return;
    }
    throw invalidPropertyValueError();
}

void RasterView::fitWidth() {
    change([&] { geometry_.fitWidth(); });
}

void RasterView::fitBest() {
    change([&] { geometry_.fitBest(); });
}

void RasterView::fitHeight() {
    change([&] { geometry_.fitHeight(); });
}

void RasterView::setZoom(float percent) {
    const RealPoint middle = geometry_.middle();
    zoomAt(percent, middle.x, middle.y);
}

void RasterView::zoomAt(float percent, double x, double y) {
    checkZoom(percent);
    change([&] { geometry_.setZoom(percent, {x, y}); });
}

void RasterView::zoomToRectangle(double left, double top, double width, double height) {
    change([&] { geometry_.zoomToRectangle({left, top, width, height}); });
}

void RasterView::scrollTo(int32_t x, int32_t y) {
    change([&] { geometry_.scrollTo(x, y); });
}

void RasterView::scrollBy(int32_t dx, int32_t dy) {
    const auto moved = [](const ScrollBar& bar, int32_t by) {
        return static_cast<int32_t>(std::clamp(int64_t{bar.position} + by, int64_t{0}, int64_t{bar.maximum}));
    };
    scrollTo(moved(horizontalBar(), dx), moved(verticalBar(), dy));
}

void RasterView::goTo(const ViewPlace& place) {
    change([&] { geometry_.goTo(place); });
}

ViewRectangles RasterView::rectangles() const {
    return {wholePicture(raster_), geometry_.visibleSource(), real(geometry_.destination()),
            real(geometry_.visibleDestination())};
}

void RasterView::setRectangles(const ViewRectangles& rectangles) {
    const RealRectangle& to = rectangles.destination;
    if (!canBePlace(to))
        throw invalidPropertyValueError();
    const auto whole = [](double value) { return static_cast<int32_t>(std::lround(value)); };
    change([&] { geometry_.place({whole(to.left), whole(to.top), whole(to.width), whole(to.height)}); });
}

void RasterView::setAutoRepaint(bool on) {
    autoRepaint_ = on;
    if (on && std::exchange(repaintPending_, false))
        surface_.repaint();
}

void RasterView::repaint() {
    if (autoRepaint_)
        surface_.repaint();
    else
        repaintPending_ = true;
}

void RasterView::setGrayScale(bool on) {
    if (on == GrayScale())
        return;
    look_.bilevel = on ? BilevelLook::ScaleToGray : BilevelLook::TwoColours;
    repaint();
}

void RasterView::setBackground(uint32_t rgb) {
    if (look_.background == (0xFF000000U | rgb))
        return;
    look_.background = 0xFF000000U | rgb;
    repaint();
}

void RasterView::setPointer(int32_t code) {
    pointer_ = code;
    surface_.setPointer(code);
}

void RasterView::compose(const PixelSurface& surface) {
    composer_.compose(surface, hasPicture() ? &raster_ : nullptr, geometry_.destination(), look_);
}

} // namespace pixmo
