#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace pixmo {

/// One value that a property may have, as a user is shown it.
struct PropertyChoice {
    int32_t value;
    const char* text;
};

/// The values of an enumerated property; none for a property that takes any value.
std::span<const PropertyChoice> propertyChoices(std::string_view property);

enum class PropertyFieldKind : uint8_t { Text, List, Check };

/// One field of the page on which a designer sets what the container keeps.
struct PropertyField {
    const char* property;
    const char* label; ///< "&" before its mnemonic
    PropertyFieldKind kind;
};

/// Down the left column, then down the right one.
std::span<const PropertyField> propertyFields();

} // namespace pixmo
