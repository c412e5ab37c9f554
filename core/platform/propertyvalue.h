#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace pixmo {

/// An OLE colour: 0x00BBGGRR, or 0x800000nn for the system colour nn.
struct Colour {
    uint32_t value = 0;
    bool operator==(const Colour&) const = default;
    bool isSystem() const { return (value & 0x80000000U) != 0; }
};

/// The colour of the user's buttons and dialogs; as a background it means that the host has named none.
inline constexpr Colour ButtonFace{0x8000000F};

/// A font as a host's font object describes it; an empty name means the container's ambient font.
struct Font {
    std::string Name;
    double Size = 8.25; ///< points
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Strikethrough = false;
    bool operator==(const Font&) const = default;
};

/// The value of a property of the control: Boolean, 16-bit, 32-bit, text, colour or font.
using PropertyValue = std::variant<bool, int16_t, int32_t, std::string, Colour, Font>;

} // namespace pixmo
