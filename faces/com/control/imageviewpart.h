#pragma once

#include "faces/com/control/imageviewproperties.h"

namespace pixmo::com {

// What a row of the interface becomes in the class.
#define PIXMO_IN(type, name) com_type::type name
#define PIXMO_INOUT(type, name) com_type::type* name
#define PIXMO_METHOD(number, name, parameters, help) STDMETHODIMP name parameters override;

/// The public interface of the control: properties, methods, and both for late binding.
class ImageViewPart : public ImageViewProperties {
public:
    using ImageViewProperties::ImageViewProperties;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

protected:
    ~ImageViewPart() = default;

public:
#include "core/control/interface.inc"
};

#undef PIXMO_INOUT
#undef PIXMO_IN

} // namespace pixmo::com
