#pragma once

#include "faces/com/control/identifiers.h"
#include "faces/com/control/part.h"

namespace pixmo::com {

/// The types of the interface's rows as the dual interface has them.
namespace com_type {
using Boolean = VARIANT_BOOL;
using Integer = SHORT;
using Long = LONG;
using PaperSize = ::vlPaperSize;
using Text = BSTR;
using Colour = OLE_COLOR;
using Font = IFontDisp*;
} // namespace com_type

// What a row of the interface becomes in the class: a member for each way to use the property.
#define PIXMO_GET(name, type)                                                                                \
    STDMETHODIMP get_##name(com_type::type* value) override {                                                \
        return get(#name, value);                                                                            \
    }
#define PIXMO_PUT(put, name, type)                                                                           \
    STDMETHODIMP put##_##name(com_type::type value) override {                                               \
        return set(#name, value);                                                                            \
    }
#define PIXMO_ReadOnly(name, type) PIXMO_GET(name, type)
#define PIXMO_RunTime(name, type) PIXMO_GET(name, type) PIXMO_PUT(put, name, type)
#define PIXMO_Saved(name, type) PIXMO_RunTime(name, type)
#define PIXMO_SavedObject(name, type) PIXMO_RunTime(name, type) PIXMO_PUT(putref, name, type)
#define PIXMO_PROPERTY(number, name, type, access, help) PIXMO_##access(name, type)

/// The properties as the dual interface has them: each by its name in the control's own table.
class ImageViewProperties : public Part<IImageView, IDispatch> {
public:
    using Part::Part;

    STDMETHODIMP get_hWnd(LONG* value) override;

protected:
    ~ImageViewProperties() = default;

    template <class Body>
    HRESULT call(const char* procedure, Body&& body) {
        return Part::call(procedure, [&] {
            body();
            return S_OK;
        });
    }

private:
    template <class Type>
    HRESULT get(const char* name, Type* value) {
        return call(name, [&] {
            checkPointer(value);
            read(context_.control()->property(name), *value);
        });
    }
    HRESULT set(const char* name, const PropertyValue& value);
    HRESULT set(const char* name, BSTR value) { return set(name, PropertyValue(textOf(value))); }
    HRESULT set(const char* name, SHORT value) { return set(name, PropertyValue(int16_t{value})); }
    HRESULT set(const char* name, LONG value) { return set(name, PropertyValue(int32_t{value})); }
    HRESULT set(const char* name, OLE_COLOR value) { return set(name, PropertyValue(Colour{value})); }
    HRESULT set(const char* name, ::vlPaperSize value) { return set(name, static_cast<LONG>(value)); }
    HRESULT set(const char* name, IFontDisp* value);

    static void read(const PropertyValue& value, BSTR& target);
    static void read(const PropertyValue& value, SHORT& target);
    static void read(const PropertyValue& value, LONG& target);
    static void read(const PropertyValue& value, OLE_COLOR& target);
    static void read(const PropertyValue& value, ::vlPaperSize& target);
    void read(const PropertyValue& value, IFontDisp*& target);

public:
#include "core/control/interface.inc"
};

#undef PIXMO_SavedObject
#undef PIXMO_Saved
#undef PIXMO_RunTime
#undef PIXMO_ReadOnly
#undef PIXMO_PUT
#undef PIXMO_GET

} // namespace pixmo::com
