#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace pixmo::com {

/// One value that a property may have, as a user is shown it.
struct PredefinedValue {
    int32_t value;
    const wchar_t* text;
};

/// The values of an enumerated property; none for a property that takes any value.
std::span<const PredefinedValue> predefinedValues(std::string_view property);

} // namespace pixmo::com
