#include "faces/com/control/imageviewpart.h"

namespace pixmo::com {

STDMETHODIMP ImageViewPart::GetTypeInfoCount(UINT* count) {
    if (!count)
        return E_POINTER;
    *count = 1;
    return S_OK;
}

STDMETHODIMP ImageViewPart::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    return context_.dispatcher().typeInfo(index, info);
}

STDMETHODIMP ImageViewPart::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    return context_.dispatcher().idsOfNames(reserved, names, count, ids);
}

STDMETHODIMP ImageViewPart::Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) {
    return Part::call("Invoke", [&] {
        return context_.dispatcher().invoke(static_cast<IImageView*>(this), member, reserved, flags,
                                            parameters, result, exception, wrongArgument);
    });
}

STDMETHODIMP ImageViewPart::Refresh() {
    return call("Refresh", [&] {
        context_.control()->Refresh();
        context_.readyFace().refresh();
        context_.pictureChanged();
    });
}

STDMETHODIMP ImageViewPart::clearCache() {
    return call("clearCache", [&] { context_.control()->clearCache(); });
}

STDMETHODIMP ImageViewPart::Clear() {
    return call("Clear", [&] { context_.control()->Clear(); });
}

STDMETHODIMP ImageViewPart::LoadDocumentByDocID(LONG DocID, SHORT PageNum) {
    return call("LoadDocumentByDocID",
                [&] { context_.control()->LoadDocumentByDocID(static_cast<int32_t>(DocID), PageNum); });
}

STDMETHODIMP ImageViewPart::GetLastError(LONG* Number, BSTR* Source, BSTR* Description, BSTR* HelpFile,
                                         LONG* HelpContext) {
    return call("GetLastError", [&] {
        for (const void* target :
             {static_cast<void*>(Number), static_cast<void*>(Source), static_cast<void*>(Description),
              static_cast<void*>(HelpFile), static_cast<void*>(HelpContext)})
            checkPointer(target);
        Error last;
        context_.control()->GetLastError(last.Number, last.Source, last.Description, last.HelpFile,
                                         last.HelpContext);
        *Number = last.Number;
        replaceText(*Source, last.Source);
        replaceText(*Description, last.Description);
        replaceText(*HelpFile, last.HelpFile);
        *HelpContext = last.HelpContext;
    });
}

STDMETHODIMP ImageViewPart::AboutBox() {
    return call("AboutBox", [&] { context_.control()->runCommand("ABOUT"); });
}

} // namespace pixmo::com
