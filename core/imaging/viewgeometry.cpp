#include "core/imaging/viewgeometry.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pixmo {

namespace {

constexpr int32_t LargestSide = 1 << 28;
/// Line steps that a page step has.
constexpr int32_t LinesOfPage = 12;

/// Halves always go down, whatever the arithmetic before has made of them: two sides of one scale are never
/// rounded apart, which place() relies on.
int32_t wholeSide(double length) {
    constexpr double half = 0.5 - 1e-6;
    return static_cast<int32_t>(std::clamp(length + half, 1.0, static_cast<double>(LargestSide)));
}

/// Where a picture side begins in a view side.
int32_t placeOf(int32_t picture, int32_t view, int32_t scroll) {
    return picture < view ? (view - picture) / 2 : -scroll;
}

int32_t clampedScroll(double scroll, int32_t picture, int32_t view) {
    return static_cast<int32_t>(std::lround(std::clamp(scroll, 0.0, std::max(0.0, 0.0 + picture - view))));
}

ScrollBar barOf(int32_t scroll, int32_t picture, int32_t view) {
    return {scroll, std::max(0, picture - view), std::max(1, view), std::max(1, view / LinesOfPage)};
}

} // namespace

void ViewGeometry::setPicture(Size pixels, double xResolution, double yResolution) {
    picture_ = pixels.empty() ? Size() : pixels;
    xResolution_ = xResolution;
    yResolution_ = yResolution;
    size_ = sizeIn(viewport_);
    scrollTo(0, 0);
}

void ViewGeometry::turnPicture(Turn turn) {
    const RealPoint share = shareAt(middle());
    if (turn != Turn::Half) {
        std::swap(picture_.width, picture_.height);
        std::swap(xResolution_, yResolution_);
    }
    size_ = sizeIn(viewport_);
    if (turn == Turn::Right)
        putShare({1 - share.y, share.x}, middle());
    else if (turn == Turn::Left)
        putShare({share.y, 1 - share.x}, middle());
    else
        putShare({1 - share.x, 1 - share.y}, middle());
}

void ViewGeometry::setViewport(Size devicePixels, double dotsPerInch) {
    const bool keepsMiddle = fit_ == Fit::None && !viewport_.empty();
    const RealPoint share = keepsMiddle ? middleShare() : shareAt({});
    viewport_ = {std::max(0, devicePixels.width), std::max(0, devicePixels.height)};
    dotsPerInch_ = dotsPerInch;
    size_ = sizeIn(viewport_);
    if (keepsMiddle)
        putMiddle(share);
    else
        putShare(share, {});
}

SizeMode ViewGeometry::sizeMode() const {
    return fit_ == Fit::Width ? SizeMode::FitWidth : fit_ == Fit::Best ? SizeMode::FitBest : SizeMode::Zoom;
}

float ViewGeometry::zoom() const {
    return fit_ == Fit::None || !hasPicture() || viewport_.empty()
               ? zoom_
               : static_cast<float>(scaleIn(viewport_) * 100);
}

void ViewGeometry::fit(Fit fit) {
    const RealPoint share = shareAt({});
    fit_ = fit;
    size_ = sizeIn(viewport_);
    putShare(share, {});
}

void ViewGeometry::setZoom(float percent, RealPoint anchor) {
    const RealPoint share = shareAt(anchor);
    fit_ = Fit::None;
    zoom_ = percent;
    size_ = sizeIn(viewport_);
    putShare(share, anchor);
}

void ViewGeometry::zoomToRectangle(const RealRectangle& rectangle) {
    if (!hasPicture() || !(rectangle.width > 0) || !(rectangle.height > 0) || viewport_.empty())
        return;
    const RealPoint share =
        shareAt({rectangle.left + rectangle.width / 2, rectangle.top + rectangle.height / 2});
    const double factor = std::min(viewport_.width / rectangle.width, viewport_.height / rectangle.height);
    const auto percent = static_cast<float>(zoom() * factor);
    if (!(percent > 0) || !std::isfinite(percent))
        return;
    setZoom(percent, middle());
    putShare(share, middle());
}

void ViewGeometry::place(const Rectangle& destination) {
    if (!hasPicture() || destination.empty())
        return;
    const double width = picture_.width / xResolution_ * dotsPerInch_;
    const double height = picture_.height / yResolution_ * dotsPerInch_;
    // Between all scales that round to these sides, so that both come out the same again.
    const double low = std::max((destination.width - 0.5) / width, (destination.height - 0.5) / height);
    const double high = std::min((destination.width + 0.5) / width, (destination.height + 0.5) / height);
    const double scale = low < high ? (low + high) / 2 : destination.width / width;
    setZoom(static_cast<float>(scale * 100), {});
    scrollTo(-destination.left, -destination.top);
}

void ViewGeometry::goTo(const ViewPlace& place) {
    fit_ = place.fit;
    zoom_ = place.zoom;
    size_ = sizeIn(viewport_);
    putMiddle(place.middle);
}

void ViewGeometry::scrollTo(int32_t x, int32_t y) {
    middle_.reset();
    scrollX_ = clampedScroll(x, size_.width, viewport_.width);
    scrollY_ = clampedScroll(y, size_.height, viewport_.height);
}

ScrollBar ViewGeometry::horizontalBar() const {
    return barOf(scrollX_, size_.width, viewport_.width);
}

ScrollBar ViewGeometry::verticalBar() const {
    return barOf(scrollY_, size_.height, viewport_.height);
}

Rectangle ViewGeometry::destination() const {
    return {placeOf(size_.width, viewport_.width, scrollX_),
            placeOf(size_.height, viewport_.height, scrollY_), size_.width, size_.height};
}

Rectangle ViewGeometry::visibleDestination() const {
    return intersection(destination(), {0, 0, viewport_.width, viewport_.height});
}

RealRectangle ViewGeometry::visibleSource() const {
    const Rectangle visible = visibleDestination();
    const RealPoint from = toPicture({0.0 + visible.left, 0.0 + visible.top});
    const RealPoint to = toPicture({0.0 + visible.right(), 0.0 + visible.bottom()});
    return {from.x, from.y, to.x - from.x, to.y - from.y};
}

RealPoint ViewGeometry::toPicture(RealPoint view) const {
    const RealPoint share = shareAt(view);
    return {share.x * picture_.width, share.y * picture_.height};
}

RealPoint ViewGeometry::toView(RealPoint picture) const {
    if (!hasPicture())
        return {};
    const Rectangle shown = destination();
    return {shown.left + picture.x / picture_.width * shown.width,
            shown.top + picture.y / picture_.height * shown.height};
}

Size ViewGeometry::sizeIn(Size viewport) const {
    if (!hasPicture())
        return {};
    const double scale = scaleIn(viewport) * dotsPerInch_;
    return {wholeSide(picture_.width / xResolution_ * scale),
            wholeSide(picture_.height / yResolution_ * scale)};
}

/// What does not fit needs a bar, which leaves less room for the other direction.
ViewGeometry::Bars ViewGeometry::barsIn(Size window, Size bar) const {
    Bars bars;
    Size room = window;
    for (int look = 0; look < 2 && hasPicture(); ++look) {
        const Size shown = sizeIn(room);
        bars.vertical = bars.vertical || shown.height > room.height;
        bars.horizontal = bars.horizontal || shown.width > room.width;
        room = {window.width - (bars.vertical ? bar.width : 0),
                window.height - (bars.horizontal ? bar.height : 0)};
    }
    return bars;
}

/// 1 is the true size.
double ViewGeometry::scaleIn(Size viewport) const {
    const double across = viewport.width / (picture_.width / xResolution_ * dotsPerInch_);
    const double down = viewport.height / (picture_.height / yResolution_ * dotsPerInch_);
    switch (fit_) {
    case Fit::Width:
        return across;
    case Fit::Best:
        return std::min(across, down);
    case Fit::Height:
        return down;
    case Fit::None:
        break;
    }
    return zoom_ / 100.0;
}

/// A place as shares of the shown picture's sides.
RealPoint ViewGeometry::shareAt(RealPoint view) const {
    if (size_.empty())
        return {};
    const Rectangle shown = destination();
    return {(view.x - shown.left) / shown.width, (view.y - shown.top) / shown.height};
}

/// Scrolls so that the place comes to the point.
void ViewGeometry::putShare(RealPoint share, RealPoint view) {
    middle_.reset();
    scrollX_ = clampedScroll(share.x * size_.width - view.x, size_.width, viewport_.width);
    scrollY_ = clampedScroll(share.y * size_.height - view.y, size_.height, viewport_.height);
}

void ViewGeometry::putMiddle(RealPoint share) {
    putShare(share, middle());
    middle_ = share;
}

} // namespace pixmo
