#pragma once

#include "core/platform/propertybag.h"

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace pixmo::com {

/// The properties and the size of one control as bytes, for hosts that keep a control as such.
///
/// Layout, all numbers little-endian: "PXIV", version (16 bits), width and height in HIMETRIC (32), number of
/// properties (16); for each property its key (length 16, UTF-8), its type (8: the alternative's index in
/// PropertyValue) and its value: Boolean 8 bits, numbers and colours as wide as they are, text with its
/// length (32), a font as name, size in 1/10000 point (32) and a byte of its styles.
class PropertyState final : public PropertyBag {
public:
    /// Bytes of no more than this are read.
    static constexpr size_t LargestSize = 16U << 20U;

    PropertyValue ReadProperty(const std::string& key, const PropertyValue& defaultValue) const override;
    void WriteProperty(const std::string& key, const PropertyValue& value,
                       const PropertyValue& defaultValue) override;

    std::vector<uint8_t> toBytes() const;
    /// Throws invalid property value (380) for bytes of any other layout.
    static PropertyState fromBytes(std::span<const uint8_t> bytes);

    int32_t width = 0;
    int32_t height = 0;

private:
    std::map<std::string, PropertyValue> values_;
};

} // namespace pixmo::com
