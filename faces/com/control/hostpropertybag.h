#pragma once

#include "core/platform/propertybag.h"

#include <ocidl.h>

namespace pixmo::com {

/// The container's own property bag.
class HostPropertyBag final : public PropertyBag {
public:
    /// Both outlive it; the log may be null.
    explicit HostPropertyBag(IPropertyBag& bag, IErrorLog* log = nullptr) : bag_(bag), log_(log) {}

    PropertyValue ReadProperty(const std::string& key, const PropertyValue& defaultValue) const override;
    /// Throws what the container answers.
    void WriteProperty(const std::string& key, const PropertyValue& value,
                       const PropertyValue& defaultValue) override;

private:
    IPropertyBag& bag_;
    IErrorLog* log_;
};

} // namespace pixmo::com
