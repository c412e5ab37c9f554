#pragma once

#include "core/platform/propertyvalue.h"

#include <span>
#include <string_view>

namespace pixmo {

class ImageView;

/// One property of the control. The type of the default is the type of the property.
struct PropertyRow {
    const char* name;
    const char* key; ///< under which a container keeps it; nullptr: run-time only
    PropertyValue defaultValue;
    PropertyValue (*get)(const ImageView&);
    /// Stores a value of the right type; true when the change is to be announced. nullptr: read-only.
    /// Throws invalid property value (380) for a value it refuses.
    bool (*let)(ImageView&, const PropertyValue&);
    const char* announcedAs; ///< the name under which the container hears of a change
};

/// All properties: first the persisted ones in the order in which they are read and written, the last of
/// them the level of the log, then the run-time ones.
std::span<const PropertyRow> propertyTable();

/// The persisted part of the table.
std::span<const PropertyRow> persistedProperties();

/// nullptr when there is none of that name.
const PropertyRow* findProperty(std::string_view name);

/// The value in the type of `like`, converted as the host runtime does it. Throws type mismatch (13) or
/// overflow (6).
PropertyValue convertProperty(const PropertyValue& value, const PropertyValue& like);

} // namespace pixmo
