#pragma once

#include "core/drawing/path.h"
#include "core/raster/raster.h"
#include "core/raster/rectangle.h"

#include <cstdint>
#include <span>
#include <vector>

namespace pixmo {

inline constexpr uint32_t Opaque = 0xFF000000;

/// A colour 0xRRGGBB, `alpha` from 0 (nothing is seen) to 255.
constexpr uint32_t withAlpha(uint32_t rgb, uint32_t alpha) {
    return alpha << 24U | (rgb & 0xFFFFFFU);
}

/// Paints paths and rectangles with smooth edges over what the surface holds: 0xFFRRGGBB, or, on a surface
/// with transparent parts, 0xAARRGGBB with the colours multiplied by alpha. Colours given are 0xAARRGGBB, not
/// multiplied.
class PathPainter {
public:
    /// All coordinates and widths are multiplied by the scale.
    explicit PathPainter(const PixelSurface& surface, double scale = 1) : surface_(surface), scale_(scale) {}

    /// Round ends and joins.
    void stroke(const Path& path, double width, uint32_t argb);
    /// What an odd number of its lines surrounds; open lines count as closed.
    void fill(const Path& path, uint32_t argb);
    void fill(const RealRectangle& rectangle, uint32_t argb);
    /// The edges of the rectangle, the lines inside of it.
    void frame(const RealRectangle& rectangle, double width, uint32_t argb);

private:
    /// How much of each pixel of the box is covered, 0 to 1.
    struct Mask {
        Rectangle box;
        std::vector<float> cover;

        float& at(int32_t x, int32_t y) {
            return cover[static_cast<size_t>(y - box.top) * static_cast<size_t>(box.width) +
                         static_cast<size_t>(x - box.left)];
        }
    };
    struct Segment {
        RealPoint from;
        RealPoint to;
    };

    Mask maskAround(std::span<const Segment> segments, double margin) const;
    std::vector<Segment> segmentsOf(const Path& path, bool close) const;
    static void coverSegment(Mask& mask, const Segment& segment, double radius);
    static void coverRow(Mask& mask, int32_t y, std::span<const double> crossings, float share);
    void blend(Mask& mask, uint32_t argb) const;

    PixelSurface surface_;
    double scale_;
};

/// `argb` with its alpha times `cover` (0 to 1) over a pixel of a surface.
uint32_t blendOver(uint32_t below, uint32_t argb, float cover);

} // namespace pixmo
