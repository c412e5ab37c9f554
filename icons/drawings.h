#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace pixmo {

/// One drawing: a PNG file in memory, black on white, named as its SVG file.
struct Drawing {
    std::string_view name;
    std::span<const uint8_t> png;
};

/// All drawings of the folder `svg`; made when the program is built.
std::span<const Drawing> drawings();

} // namespace pixmo
