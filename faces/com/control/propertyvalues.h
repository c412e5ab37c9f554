#pragma once

#include "core/platform/propertyvalue.h"
#include "faces/com/base/variant.h"

#include <optional>

namespace pixmo::com {

/// The Automation type in which values like this one travel.
VARTYPE typeOf(const PropertyValue& like);

Variant toVariant(const PropertyValue& value);

/// Nothing for a value that the control's properties cannot have.
std::optional<PropertyValue> toPropertyValue(const Variant& variant);

} // namespace pixmo::com
