#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pixmo {

/// A property of the viewer that the engine sets in an answer.
struct Property {
    std::string name;
    std::string value;

    bool operator==(const Property&) const = default;
};

/// "NAME=VALUE"; the value may hold further equals signs. Nothing when there is no "=" or no name.
std::optional<Property> parseProperty(std::string_view text);

/// The value of the first property of that name, letter case ignored.
std::optional<std::string> propertyValue(std::span<const Property> properties, std::string_view name);

} // namespace pixmo
