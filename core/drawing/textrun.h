#pragma once

#include "core/raster/rectangle.h"

#include <cstdint>
#include <functional>
#include <string>

namespace pixmo {

/// A text that a face writes in its own font over what was painted, in the middle of the place.
struct TextRun {
    Rectangle place; ///< device pixels
    std::string text;
    bool bold = false;
    uint32_t rgb = 0;
    bool wraps = false; ///< broken into lines as wide as the place; else one line
};

/// The extent of a text in the face's font, device pixels. In a room wider than 0 it is broken into lines
/// that are no wider than the room.
using TextMeasure = std::function<Size(const std::string& text, bool bold, int32_t room)>;

} // namespace pixmo
