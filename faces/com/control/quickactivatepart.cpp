#include "faces/com/control/quickactivatepart.h"

#include "faces/com/control/identifiers.h"

namespace pixmo::com {

STDMETHODIMP QuickActivatePart::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    return call("QuickActivate", [&]() -> HRESULT {
        checkPointer(container);
        checkPointer(control);
        if (container->cbSize < sizeof(QACONTAINER) || control->cbSize < sizeof(QACONTROL))
            return E_INVALIDARG;
        const ULONG size = control->cbSize;
        *control = {};
        control->cbSize = size;
        context_.setClientSite(ComPtr<IOleClientSite>(container->pClientSite));
        if (container->pAdviseSink)
            context_.observers().adviseView(DVASPECT_CONTENT, 0,
                                            queryFor<IAdviseSink>(container->pAdviseSink).get());
        connect(DIID_IImageViewEvents, container->pUnkEventSink, control->dwEventCookie);
        connect(IID_IPropertyNotifySink, container->pPropertyNotifySink, control->dwPropNotifyCookie);
        control->dwMiscStatus = ControlStatus;
        control->dwViewStatus = VIEWSTATUS_OPAQUE;
        return S_OK;
    });
}

void QuickActivatePart::connect(REFIID outgoing, IUnknown* sink, DWORD& cookie) {
    if (!sink)
        return;
    for (ConnectionPoint* point : context_.sinks().points())
        if (IsEqualIID(outgoing, point->outgoing()))
            point->Advise(sink, &cookie);
}

STDMETHODIMP QuickActivatePart::SetContentExtent(LPSIZEL size) {
    return call("SetContentExtent", [&]() -> HRESULT {
        checkPointer(size);
        if (size->cx < 0 || size->cy < 0)
            return E_INVALIDARG;
        context_.setExtent(*size);
        return S_OK;
    });
}

STDMETHODIMP QuickActivatePart::GetContentExtent(LPSIZEL size) {
    if (!size)
        return E_POINTER;
    *size = context_.extent();
    return S_OK;
}

} // namespace pixmo::com
