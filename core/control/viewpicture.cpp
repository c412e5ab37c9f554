#include "core/control/viewpicture.h"

#include "core/drawing/pathpainter.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace pixmo {

namespace {

/// How much of the former picture the veil hides.
constexpr uint32_t VeilAlpha = 191;
constexpr uint32_t BandAlpha = 40;
/// Around the text of a notice on its plate, and around the plate; device-independent pixels.
constexpr double NoticeMargin = 12;

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

/// On a plate in the middle.
TextRun paintNotice(const PixelSurface& surface, const std::string& text, const Palette& palette,
                    PathPainter& painter, double ratio, const TextMeasure& measure) {
    const auto margin = static_cast<int32_t>(std::lround(NoticeMargin * ratio));
    const Size size = measure(text, false, std::max(1, surface.width - 4 * margin));
    const Rectangle place = {(surface.width - size.width) / 2, (surface.height - size.height) / 2, size.width,
                             size.height};
    const RealRectangle plate = {0.0 + place.left - margin, 0.0 + place.top - margin,
                                 0.0 + place.width + 2 * margin, 0.0 + place.height + 2 * margin};
    painter.fill(plate, Opaque | palette.face);
    painter.frame(plate, std::max(1.0, std::round(ratio)), Opaque | palette.shadow);
    return {place, text, false, palette.faceText, true};
}

} // namespace

std::vector<TextRun> paintView(ImageView& control, const PixelSurface& surface, const Palette& palette,
                               bool focused, const TextMeasure& measure) {
    RasterView& view = control.lvrImage();
    PathPainter painter(surface);
    const double ratio = control.ports().viewSurface->devicePixelRatio();
    const double line = std::max(1.0, std::round(ratio));
    const std::string notice = control.viewNotice();
    const bool noticed = !notice.empty();
    std::vector<TextRun> texts;
    if (noticed && !control.isPageAwaited())
        fillAll(surface, Opaque | view.background());
    else
        view.compose(surface);
    if (noticed)
        fillAll(surface, withAlpha(view.background(), VeilAlpha));
    else if (view.rubberBandActive)
        paintRubberBand(view, painter, line, palette.highlight);
    if (noticed)
        texts.push_back(paintNotice(surface, notice, palette, painter, ratio, measure));
    if (focused)
        painter.frame({0, 0, static_cast<double>(surface.width), static_cast<double>(surface.height)}, line,
                      Opaque | palette.highlight);
    return texts;
}

} // namespace pixmo
