#include "core/imaging/viewcomposer.h"

#include <algorithm>
#include <cstring>

namespace pixmo {

namespace {

void fill(const PixelSurface& surface, const Rectangle& area, uint32_t colour) {
    if (area.width <= 0)
        return;
    for (int32_t y = area.top; y < area.bottom(); ++y)
        std::fill_n(surface.row(y).data() + area.left, area.width, colour);
}

/// Paints one area of the surface: the picture and the background around it.
void paint(const PixelSurface& surface, const Rectangle& area, const Raster* raster,
           const Rectangle& destination, const ViewLook& look) {
    const Rectangle page = raster ? intersection(area, destination) : Rectangle();
    if (page.empty()) {
        fill(surface, area, look.background);
        return;
    }
    fill(surface, {area.left, area.top, area.width, page.top - area.top}, look.background);
    fill(surface, {area.left, page.top, page.left - area.left, page.height}, look.background);
    fill(surface, {page.right(), page.top, area.right() - page.right(), page.height}, look.background);
    fill(surface, {area.left, page.bottom(), area.width, area.bottom() - page.bottom()}, look.background);
    drawPicture(*raster, wholePicture(*raster), surface, destination, page, look.bilevel);
}

bool sameSize(const Rectangle& a, const Rectangle& b) {
    return a.width == b.width && a.height == b.height;
}

} // namespace

void ViewComposer::compose(const PixelSurface& surface, const Raster* raster, const Rectangle& destination,
                           const ViewLook& look) {
    const Rectangle all{0, 0, surface.width, surface.height};
    // A copy of the picture's own pixels costs no more than a copy of the last painting.
    if (!raster || (raster->width == destination.width && raster->height == destination.height)) {
        forget();
        paint(surface, all, raster, destination, look);
        return;
    }
    if (keeps(surface, destination, look)) {
        refresh(*raster, destination);
    } else {
        size_ = {surface.width, surface.height};
        pixels_.resize(static_cast<size_t>(size_.width) * static_cast<size_t>(size_.height));
        look_ = look;
        paint(kept(), all, raster, destination, look);
    }
    destination_ = destination;
    for (int32_t y = 0; y < size_.height; ++y)
        std::ranges::copy(kept().row(y), surface.row(y).begin());
}

void ViewComposer::forget() {
    size_ = {};
    pixels_ = {};
}

bool ViewComposer::keeps(const PixelSurface& surface, const Rectangle& destination,
                         const ViewLook& look) const {
    return size_ == Size{surface.width, surface.height} && sameSize(destination, destination_) &&
           look == look_;
}

PixelSurface ViewComposer::kept() {
    return {pixels_.data(), size_.width, size_.height, static_cast<size_t>(size_.width)};
}

/// Moves the kept painting to where the picture now lies and paints the strips that this lays bare.
void ViewComposer::refresh(const Raster& raster, const Rectangle& destination) {
    const auto [width, height] = size_;
    const int32_t dx = std::clamp(destination.left - destination_.left, -width, width);
    const int32_t dy = std::clamp(destination.top - destination_.top, -height, height);
    shift(dx, dy);
    const int32_t besides = height - std::abs(dy);
    paint(kept(), {0, dy > 0 ? 0 : height + dy, width, std::abs(dy)}, &raster, destination, look_);
    paint(kept(), {dx > 0 ? 0 : width + dx, std::max(dy, 0), std::abs(dx), besides}, &raster, destination,
          look_);
}

void ViewComposer::shift(int32_t dx, int32_t dy) {
    const auto columns = static_cast<size_t>(size_.width - std::abs(dx));
    const int32_t rows = size_.height - std::abs(dy);
    if (columns == 0 || (dx == 0 && dy == 0))
        return;
    for (int32_t i = 0; i < rows; ++i) {
        // From the side towards which the rows move, so that none is overwritten before it has moved.
        const int32_t to = dy > 0 ? size_.height - 1 - i : i;
        std::memmove(kept().row(to).data() + std::max(dx, 0), kept().row(to - dy).data() + std::max(-dx, 0),
                     columns * sizeof(uint32_t));
    }
}

} // namespace pixmo
