#include "faces/com/control/hostpropertybag.h"

#include "faces/com/base/boundary.h"
#include "faces/com/control/propertyvalues.h"

namespace pixmo::com {

/// The value is asked for in the property's own type, which tells the bag how to make it of text, and then as
/// text, which the control reads itself.
PropertyValue HostPropertyBag::ReadProperty(const std::string& key, const PropertyValue& defaultValue) const {
    const std::wstring name = toWide(key);
    for (const VARTYPE type : {typeOf(defaultValue), static_cast<VARTYPE>(VT_BSTR)}) {
        Variant value;
        value.get()->vt = type;
        if (FAILED(bag_.Read(name.c_str(), value.get(), log_)))
            continue;
        if (auto read = toPropertyValue(value))
            return *std::move(read);
    }
    return defaultValue;
}

void HostPropertyBag::WriteProperty(const std::string& key, const PropertyValue& value,
                                    const PropertyValue& defaultValue) {
    if (value == defaultValue)
        return;
    check(bag_.Write(toWide(key).c_str(), toVariant(value).get()));
}

} // namespace pixmo::com
