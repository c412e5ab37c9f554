#include "faces/com/control/propertyvalues.h"

#include "faces/com/control/fontobject.h"

namespace pixmo::com {

namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};

template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

} // namespace

VARTYPE typeOf(const PropertyValue& like) {
    static constexpr VARTYPE types[] = {VT_BOOL, VT_I2, VT_I4, VT_BSTR, VT_I4, VT_DISPATCH};
    static_assert(std::size(types) == std::variant_size_v<PropertyValue>);
    return types[like.index()];
}

Variant toVariant(const PropertyValue& value) {
    return std::visit(
        Overloaded{
            [](const Colour& colour) { return Variant(static_cast<int32_t>(colour.value)); },
            [](const Font& font) { return Variant(static_cast<IDispatch*>(makeFontObject(font).get())); },
            [](const std::string& text) { return Variant(std::string_view(text)); },
            [](auto plain) { return Variant(plain); },
        },
        value);
}

std::optional<PropertyValue> toPropertyValue(const Variant& variant) {
    const VARIANT& value = *variant.get();
    switch (value.vt) {
    case VT_BOOL:
        return value.boolVal != VARIANT_FALSE;
    case VT_I2:
        return value.iVal;
    case VT_I4:
        return static_cast<int32_t>(value.lVal);
    case VT_BSTR:
        return textOf(value.bstrVal);
    case VT_DISPATCH:
    case VT_UNKNOWN:
        if (const auto font = variant.object().as<IFont>())
            return fontOf(*font);
        return std::nullopt;
    default:
        break;
    }
    // Numbers of other widths, as text: the control reads it as it reads any text.
    Variant text;
    if (value.vt == VT_EMPTY || value.vt == VT_NULL || FAILED(text.assignFrom(&value)) ||
        FAILED(text.convertTo(VT_BSTR)))
        return std::nullopt;
    return textOf(text.get()->bstrVal);
}

} // namespace pixmo::com
