#include "faces/com/control/imageviewproperties.h"

#include "faces/com/control/fontobject.h"

namespace pixmo::com {

HRESULT ImageViewProperties::set(const char* name, const PropertyValue& value) {
    return call(name, [&] {
        context_.control()->setProperty(name, value);
        context_.readyFace().refresh();
    });
}

HRESULT ImageViewProperties::set(const char* name, IFontDisp* value) {
    return call(name, [&] {
        const auto font = queryFor<IFont>(value);
        if (!font)
            throw typeMismatchError();
        context_.fontLink().adopt(ComPtr<IFontDisp>(value));
        context_.letFont(fontOf(*font));
    });
}

STDMETHODIMP ImageViewProperties::get_hWnd(LONG* value) {
    return call("hWnd", [&] {
        checkPointer(value);
        // Handles of windows have 32 bits that count, also where they are wider.
        *value = HandleToLong(context_.face() ? context_.face()->window() : nullptr);
    });
}

void ImageViewProperties::read(const PropertyValue& value, BSTR& target) {
    target = Bstr(std::string_view(std::get<std::string>(value))).detach();
}

/// Integers, and Booleans: Automation's Boolean is a number of 16 bits.
void ImageViewProperties::read(const PropertyValue& value, SHORT& target) {
    if (const bool* flag = std::get_if<bool>(&value))
        target = *flag ? VARIANT_TRUE : VARIANT_FALSE;
    else
        target = std::get<int16_t>(value);
}

void ImageViewProperties::read(const PropertyValue& value, LONG& target) {
    target = std::get<int32_t>(value);
}

void ImageViewProperties::read(const PropertyValue& value, OLE_COLOR& target) {
    target = std::get<Colour>(value).value;
}

void ImageViewProperties::read(const PropertyValue& value, ::vlPaperSize& target) {
    target = static_cast<::vlPaperSize>(std::get<int32_t>(value));
}

void ImageViewProperties::read(const PropertyValue& value, IFontDisp*& target) {
    const auto own = std::get<Font>(value);
    target = context_.fontLink().object(own.Name.empty() ? context_.ambientFont() : own).detach();
}

} // namespace pixmo::com
