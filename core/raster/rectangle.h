#pragma once

#include <algorithm>
#include <cstdint>

namespace pixmo {

struct Size {
    int32_t width = 0;
    int32_t height = 0;

    bool empty() const { return width <= 0 || height <= 0; }
    bool operator==(const Size&) const = default;
};

/// Whole pixels; right and bottom are the first ones outside. Coordinates stay within +-2^30.
struct Rectangle {
    int32_t left = 0;
    int32_t top = 0;
    int32_t width = 0;
    int32_t height = 0;

    int32_t right() const { return left + width; }
    int32_t bottom() const { return top + height; }
    bool empty() const { return width <= 0 || height <= 0; }
    bool operator==(const Rectangle&) const = default;
};

/// A place between pixels: 0 is the left (top) edge of the first one.
struct RealPoint {
    double x = 0;
    double y = 0;

    bool operator==(const RealPoint&) const = default;
};

struct RealRectangle {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    bool operator==(const RealRectangle&) const = default;
};

/// What both cover; empty where they do not meet.
inline Rectangle intersection(const Rectangle& a, const Rectangle& b) {
    const int32_t left = std::max(a.left, b.left);
    const int32_t top = std::max(a.top, b.top);
    return {left, top, std::max(0, std::min(a.right(), b.right()) - left),
            std::max(0, std::min(a.bottom(), b.bottom()) - top)};
}

} // namespace pixmo
