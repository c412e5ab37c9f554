#pragma once

#include "core/raster/rectangle.h"

#include <string_view>
#include <vector>

namespace pixmo {

/// Lines to be stroked or filled; curves are chains of short straight ones.
class Path {
public:
    struct Line {
        std::vector<RealPoint> points;
        bool closed = false;
    };

    Path() = default;
    /// Words with blanks between: M x y begins a line, L x y continues it, A x y r start span begins an arc
    /// about x, y (degrees, from the right, counter-clockwise), Z closes the line. Ends at what it does not
    /// know.
    explicit Path(std::string_view words);

    void moveTo(RealPoint place) { lines_.push_back({{place}, false}); }
    void lineTo(RealPoint place);
    void arc(RealPoint centre, double radius, double startDegrees, double spanDegrees);
    void close();
    void addEllipse(RealPoint centre, double radius) { arc(centre, radius, 0, 360); }
    void addRoundedRectangle(const RealRectangle& rectangle, double radius);

    const std::vector<Line>& lines() const { return lines_; }

private:
    void addArcPoints(RealPoint centre, double radius, double startDegrees, double spanDegrees);

    std::vector<Line> lines_;
};

} // namespace pixmo
