#include "apps/engine/property.h"

#include "core/base/text.h"

namespace pixmo {

std::optional<Property> parseProperty(std::string_view text) {
    const size_t equals = text.find('=');
    if (equals == std::string_view::npos || equals == 0)
        return std::nullopt;
    return Property{std::string(text.substr(0, equals)), std::string(text.substr(equals + 1))};
}

std::optional<std::string> propertyValue(std::span<const Property> properties, std::string_view name) {
    for (const Property& property : properties)
        if (equalIgnoringCase(property.name, name))
            return property.value;
    return std::nullopt;
}

} // namespace pixmo
