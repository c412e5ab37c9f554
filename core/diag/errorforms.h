#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace pixmo {

/// A disconnected record set of one row.
struct Recordset {
    static constexpr int32_t TypeInteger = 3;   ///< 32-bit signed
    static constexpr int32_t TypeVarChar = 200; ///< text of variable length

    struct Field {
        std::string Name;
        int32_t Type = TypeVarChar;
        size_t DefinedSize = 0; ///< characters; 0 for an integer and for an empty text
        std::variant<int32_t, std::string> Value;
    };
    std::vector<Field> Fields;
};

/// An element of an XML 1.0 document with its attributes, text and children.
struct XmlElement {
    std::string Name;
    std::vector<std::pair<std::string, std::string>> Attributes;
    std::string Text;
    std::vector<XmlElement> Children;

    /// Markup characters are escaped; characters that XML cannot carry become U+FFFD.
    std::string serialise() const;
};

} // namespace pixmo
