#pragma once

#include "core/imaging/raster.h"
#include "core/platform/viewsurface.h"

#include <utility>

namespace pixmo {

class RasterView {
public:
    explicit RasterView(ViewSurface& surface) : surface_(surface) {}
    void setRaster(Raster raster) { raster_ = std::move(raster); }
    void clear() { raster_ = {}; }
    bool hasPicture() const { return !raster_.empty(); }
    const Raster& raster() const { return raster_; }
    bool grayScale() const { return gray_; }
    void setGrayScale(bool on) { gray_ = on; }
    void setPointer(int32_t p) { surface_.setPointer(p); }
    void viewportResized() {}
    void repaint() { surface_.repaint(); }
    void scrollBy(int, int) {}
    void fitWidth() {}
    void setDragMode(bool) {}

private:
    ViewSurface& surface_;
    Raster raster_;
    bool gray_ = true;
};

} // namespace pixmo
