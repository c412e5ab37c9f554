#include "core/control/viewpicture.h"

#include "core/drawing/pathpainter.h"

#include <algorithm>
#include <cmath>

namespace pixmo {

namespace {

/// How much of the former picture the veil hides.
constexpr uint32_t VeilAlpha = 191;
constexpr uint32_t BandAlpha = 40;

void fillAll(const PixelSurface& surface, uint32_t argb) {
    for (int32_t y = 0; y < surface.height; ++y)
        for (uint32_t& pixel : surface.row(y))
            pixel = blendOver(pixel, argb, 1);
}

void paintRubberBand(const RasterView& view, PathPainter& painter, double line, uint32_t rgb) {
    const RealRectangle& band = view.rubberBand;
    painter.fill(band, withAlpha(rgb, BandAlpha));
    painter.frame({std::round(band.left), std::round(band.top), std::round(band.width) + line,
                   std::round(band.height) + line},
                  line, Opaque | rgb);
}

} // namespace

void paintView(ImageView& control, const PixelSurface& surface, const Palette& palette, bool focused) {
    RasterView& view = control.lvrImage();
    PathPainter painter(surface);
    const double line = std::max(1.0, std::round(control.parts().ports.viewSurface->devicePixelRatio()));
    const bool noticed = !control.viewNotice().empty();
    if (noticed && !control.isPageAwaited())
        fillAll(surface, Opaque | view.background());
    else
        view.compose(surface);
    if (noticed)
        fillAll(surface, withAlpha(view.background(), VeilAlpha));
    else if (view.rubberBandActive)
        paintRubberBand(view, painter, line, palette.highlight);
    if (focused)
        painter.frame({0, 0, static_cast<double>(surface.width), static_cast<double>(surface.height)}, line,
                      Opaque | palette.highlight);
}

} // namespace pixmo
