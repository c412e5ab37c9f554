#include "core/drawing/pathpainter.h"

#include <algorithm>
#include <cmath>

namespace pixmo {

namespace {

/// Rows of samples within a row of pixels.
constexpr int32_t SubRows = 5;

int32_t floorOf(double value) {
    return static_cast<int32_t>(std::floor(value));
}

int32_t ceilOf(double value) {
    return static_cast<int32_t>(std::ceil(value));
}

double distance(RealPoint from, RealPoint to, double x, double y) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double length = dx * dx + dy * dy;
    const double share =
        length == 0 ? 0 : std::clamp(((x - from.x) * dx + (y - from.y) * dy) / length, 0.0, 1.0);
    return std::hypot(x - from.x - share * dx, y - from.y - share * dy);
}

/// How much of the pixel [at, at + 1] lies between two places.
double overlap(double from, double to, int32_t at) {
    return std::clamp(std::min(to, at + 1.0) - std::max(from, static_cast<double>(at)), 0.0, 1.0);
}

} // namespace

uint32_t blendOver(uint32_t below, uint32_t argb, float cover) {
    const auto alpha = static_cast<float>(argb >> 24U) / 255.0F * cover;
    uint32_t result = 0;
    for (const uint32_t shift : {24U, 16U, 8U, 0U}) {
        const float over = shift == 24U ? 255.0F : static_cast<float>(argb >> shift & 0xFFU);
        const auto under = static_cast<float>(below >> shift & 0xFFU);
        const auto mixed = static_cast<uint32_t>(std::lround(over * alpha + under * (1 - alpha)));
        result |= std::min(mixed, 255U) << shift;
    }
    return result;
}

std::vector<PathPainter::Segment> PathPainter::segmentsOf(const Path& path, bool close) const {
    std::vector<Segment> segments;
    const auto scaled = [this](RealPoint place) { return RealPoint{place.x * scale_, place.y * scale_}; };
    for (const Path::Line& line : path.lines()) {
        for (size_t i = 1; i < line.points.size(); ++i)
            segments.push_back({scaled(line.points[i - 1]), scaled(line.points[i])});
        if ((line.closed || close) && line.points.size() > 1)
            segments.push_back({scaled(line.points.back()), scaled(line.points.front())});
    }
    return segments;
}

PathPainter::Mask PathPainter::maskAround(std::span<const Segment> segments, double margin) const {
    Mask mask;
    if (segments.empty())
        return mask;
    RealPoint least = segments.front().from;
    RealPoint most = least;
    for (const Segment& segment : segments)
        for (const RealPoint& place : {segment.from, segment.to}) {
            least = {std::min(least.x, place.x), std::min(least.y, place.y)};
            most = {std::max(most.x, place.x), std::max(most.y, place.y)};
        }
    const int32_t left = floorOf(least.x - margin);
    const int32_t top = floorOf(least.y - margin);
    mask.box = intersection({left, top, ceilOf(most.x + margin) - left, ceilOf(most.y + margin) - top},
                            {0, 0, surface_.width, surface_.height});
    mask.cover.resize(static_cast<size_t>(mask.box.width) * static_cast<size_t>(mask.box.height));
    return mask;
}

void PathPainter::coverSegment(Mask& mask, const Segment& segment, double radius) {
    const double reach = radius + 1;
    const int32_t left = floorOf(std::min(segment.from.x, segment.to.x) - reach);
    const int32_t top = floorOf(std::min(segment.from.y, segment.to.y) - reach);
    const Rectangle near =
        intersection({left, top, ceilOf(std::max(segment.from.x, segment.to.x) + reach) - left,
                      ceilOf(std::max(segment.from.y, segment.to.y) + reach) - top},
                     mask.box);
    for (int32_t y = near.top; y < near.bottom(); ++y)
        for (int32_t x = near.left; x < near.right(); ++x) {
            const double away = distance(segment.from, segment.to, x + 0.5, y + 0.5);
            // A line thinner than a pixel is as faint as it is thin.
            const double cover = std::clamp(radius + 0.5 - away, 0.0, std::min(1.0, 2 * radius));
            float& present = mask.at(x, y);
            present = std::max(present, static_cast<float>(cover));
        }
}

void PathPainter::stroke(const Path& path, double width, uint32_t argb) {
    const double radius = width * scale_ / 2;
    const std::vector<Segment> segments = segmentsOf(path, false);
    Mask mask = maskAround(segments, radius + 1);
    for (const Segment& segment : segments)
        coverSegment(mask, segment, radius);
    blend(mask, argb);
}

void PathPainter::coverRow(Mask& mask, int32_t y, std::span<const double> crossings, float share) {
    for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
        const int32_t first = std::max(mask.box.left, floorOf(crossings[i]));
        const int32_t end = std::min(mask.box.right(), ceilOf(crossings[i + 1]));
        for (int32_t x = first; x < end; ++x)
            mask.at(x, y) += share * static_cast<float>(overlap(crossings[i], crossings[i + 1], x));
    }
}

void PathPainter::fill(const Path& path, uint32_t argb) {
    const std::vector<Segment> segments = segmentsOf(path, true);
    Mask mask = maskAround(segments, 0);
    std::vector<double> crossings;
    for (int32_t row = mask.box.top * SubRows; row < mask.box.bottom() * SubRows; ++row) {
        const double y = (row + 0.5) / SubRows;
        crossings.clear();
        for (const auto& [from, to] : segments)
            if ((from.y <= y) != (to.y <= y))
                crossings.push_back(from.x + (to.x - from.x) * (y - from.y) / (to.y - from.y));
        std::sort(crossings.begin(), crossings.end());
        coverRow(mask, floorOf(y), crossings, 1.0F / SubRows);
    }
    blend(mask, argb);
}

void PathPainter::fill(const RealRectangle& rectangle, uint32_t argb) {
    const double left = rectangle.left * scale_;
    const double top = rectangle.top * scale_;
    const double right = left + rectangle.width * scale_;
    const double bottom = top + rectangle.height * scale_;
    const std::vector<Segment> diagonal = {{{left, top}, {right, bottom}}};
    Mask mask = maskAround(diagonal, 0);
    for (int32_t y = mask.box.top; y < mask.box.bottom(); ++y)
        for (int32_t x = mask.box.left; x < mask.box.right(); ++x)
            mask.at(x, y) = static_cast<float>(overlap(left, right, x) * overlap(top, bottom, y));
    blend(mask, argb);
}

void PathPainter::frame(const RealRectangle& r, double width, uint32_t argb) {
    fill(RealRectangle{r.left, r.top, r.width, width}, argb);
    fill(RealRectangle{r.left, r.top + r.height - width, r.width, width}, argb);
    fill(RealRectangle{r.left, r.top + width, width, r.height - 2 * width}, argb);
    fill(RealRectangle{r.left + r.width - width, r.top + width, width, r.height - 2 * width}, argb);
}

void PathPainter::blend(Mask& mask, uint32_t argb) const {
    for (int32_t y = mask.box.top; y < mask.box.bottom(); ++y) {
        const auto row = surface_.row(y);
        for (int32_t x = mask.box.left; x < mask.box.right(); ++x) {
            const float cover = std::min(mask.at(x, y), 1.0F);
            if (cover > 0)
                row[static_cast<size_t>(x)] = blendOver(row[static_cast<size_t>(x)], argb, cover);
        }
    }
}

} // namespace pixmo
