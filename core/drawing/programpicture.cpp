#include "core/drawing/programpicture.h"

#include "core/drawing/pathpainter.h"

#include <algorithm>

namespace pixmo {

namespace {

constexpr double Grid = 32;

/// A page with a turned corner, a headline and lines of text.
void paintPage(PathPainter& painter) {
    constexpr uint32_t Outline = 0xFF445566;
    const Path page("M 6 2.5 L 19 2.5 L 26 9.5 L 26 29.5 L 6 29.5 Z");
    const Path corner("M 19 2.5 L 26 9.5 L 19 9.5 Z");
    painter.fill(page, 0xFFFFFFFF);
    painter.stroke(page, 1.2, Outline);
    painter.fill(corner, 0xFFD5DEE6);
    painter.stroke(corner, 1.2, Outline);
    painter.fill(RealRectangle{9.5, 7, 6, 3}, 0xFF1F6FB2);
    for (const double y : {14.0, 17.5, 21.0, 24.5})
        painter.fill(RealRectangle{9.5, y, y > 24 ? 8.0 : 13.0, 1.4}, 0xFF778899);
}

} // namespace

std::vector<uint32_t> programPicture(int32_t size) {
    const auto side = static_cast<size_t>(std::max(size, 0));
    std::vector<uint32_t> pixels(side * side);
    PathPainter painter({pixels.data(), size, size, side}, size / Grid);
    paintPage(painter);
    return pixels;
}

} // namespace pixmo
