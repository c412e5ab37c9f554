#pragma once

#include "faces/com/control/imageviewproperties.h"

namespace pixmo::com {

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

    STDMETHODIMP Refresh() override;
    STDMETHODIMP clearCache() override;
    STDMETHODIMP Clear() override;
    STDMETHODIMP LoadDocumentByDocID(LONG DocID, SHORT PageNum) override;
    STDMETHODIMP GetLastError(LONG* Number, BSTR* Source, BSTR* Description, BSTR* HelpFile,
                              LONG* HelpContext) override;
    STDMETHODIMP AboutBox() override;

protected:
    ~ImageViewPart() = default;
};

} // namespace pixmo::com
