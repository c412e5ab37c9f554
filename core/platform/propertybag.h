#pragma once

#include "core/platform/propertyvalue.h"

#include <string>

namespace pixmo {

/// Port: where a container keeps the properties of one control.
class PropertyBag {
public:
    virtual ~PropertyBag() = default;

    /// The stored value, of whatever type it was stored in, or the default.
    virtual PropertyValue ReadProperty(const std::string& key, const PropertyValue& defaultValue) const = 0;
    /// A value equal to its default is not stored.
    virtual void WriteProperty(const std::string& key, const PropertyValue& value,
                               const PropertyValue& defaultValue) = 0;
};

} // namespace pixmo
