#pragma once

#include "core/imaging/rectangle.h"

#include <cstdint>
#include <functional>
#include <string>

namespace pixmo {

/// A line of text that a face writes in its own font over what was painted, in the middle of the place.
struct TextRun {
    Rectangle place; ///< device pixels
    std::string text;
    bool bold = false;
    uint32_t rgb = 0;
};

/// The extent of a line of text in the face's font, device pixels.
using TextMeasure = std::function<Size(const std::string& text, bool bold)>;

} // namespace pixmo
