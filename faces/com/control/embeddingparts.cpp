#include "faces/com/control/embeddingparts.h"

#include "faces/com/base/comenum.h"
#include "faces/com/control/identifiers.h"
#include "faces/com/control/propertyframe.h"

#include <array>

namespace pixmo::com {

namespace {

wchar_t propertiesName[] = L"&Properties";

/// What a host's menu offers; the other verbs are the host's own business.
const std::array Verbs{OLEVERB{OLEIVERB_PROPERTIES, propertiesName, 0, OLEVERBATTRIB_ONCONTAINERMENU}};

} // namespace

STDMETHODIMP OleObjectPart::SetClientSite(IOleClientSite* site) {
    return call("SetClientSite", [&] {
        context_.setClientSite(ComPtr<IOleClientSite>(site));
        return S_OK;
    });
}

STDMETHODIMP OleObjectPart::GetClientSite(IOleClientSite** site) {
    return context_.host().clientSite().copyTo(site);
}

STDMETHODIMP OleObjectPart::SetHostNames(LPCOLESTR, LPCOLESTR) {
    return S_OK;
}

STDMETHODIMP OleObjectPart::Close(DWORD saveOption) {
    return call("Close", [&] {
        if (saveOption != OLECLOSE_NOSAVE && context_.isDirty())
            if (const HRESULT saved = saveToSite(); FAILED(saved))
                return saved;
        context_.close();
        return S_OK;
    });
}

HRESULT OleObjectPart::saveToSite() {
    const auto& site = context_.host().clientSite();
    return site ? site->SaveObject() : S_OK;
}

STDMETHODIMP OleObjectPart::SetMoniker(DWORD, IMoniker*) {
    return E_NOTIMPL;
}

STDMETHODIMP OleObjectPart::GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) {
    if (!moniker)
        return E_POINTER;
    *moniker = nullptr;
    const auto& site = context_.host().clientSite();
    return site ? site->GetMoniker(assign, which, moniker) : E_UNEXPECTED;
}

STDMETHODIMP OleObjectPart::InitFromData(IDataObject*, BOOL, DWORD) {
    return E_NOTIMPL;
}

STDMETHODIMP OleObjectPart::GetClipboardData(DWORD, IDataObject** data) {
    if (data)
        *data = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP OleObjectPart::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent, LPCRECT) {
    return call("DoVerb", [&]() -> HRESULT {
        switch (verb) {
        case OLEIVERB_SHOW:
        case OLEIVERB_INPLACEACTIVATE:
            return context_.inPlace().activate();
        case OLEIVERB_PRIMARY:
        case OLEIVERB_UIACTIVATE:
            return context_.inPlace().use();
        case OLEIVERB_HIDE:
            context_.inPlace().hide();
            return S_OK;
        case OLEIVERB_PROPERTIES:
            return showPropertyFrame(context_, parent);
        default:
            break;
        }
        // A verb of no meaning does what the primary one does, and says so.
        if (verb < 0)
            return E_NOTIMPL;
        const HRESULT result = context_.inPlace().use();
        return FAILED(result) ? result : OLEOBJ_S_INVALIDVERB;
    });
}

STDMETHODIMP OleObjectPart::EnumVerbs(IEnumOLEVERB** verbs) {
    return call("EnumVerbs", [&] {
        checkPointer(verbs);
        *verbs = makeObject<ComEnum<IEnumOLEVERB, OLEVERB>>(std::vector<OLEVERB>(Verbs.begin(), Verbs.end()))
                     .detach();
        return S_OK;
    });
}

STDMETHODIMP OleObjectPart::Update() {
    return S_OK;
}

STDMETHODIMP OleObjectPart::IsUpToDate() {
    return S_OK;
}

STDMETHODIMP OleObjectPart::GetUserClassID(CLSID* classId) {
    if (!classId)
        return E_POINTER;
    *classId = CLSID_ImageView;
    return S_OK;
}

STDMETHODIMP OleObjectPart::GetUserType(DWORD form, LPOLESTR* type) {
    return OleRegGetUserType(CLSID_ImageView, form, type);
}

STDMETHODIMP OleObjectPart::SetExtent(DWORD aspect, SIZEL* size) {
    return call("SetExtent", [&]() -> HRESULT {
        checkPointer(size);
        if (aspect != DVASPECT_CONTENT)
            return DV_E_DVASPECT;
        if (size->cx < 0 || size->cy < 0)
            return E_INVALIDARG;
        context_.setExtent(*size);
        return S_OK;
    });
}

STDMETHODIMP OleObjectPart::GetExtent(DWORD aspect, SIZEL* size) {
    if (!size)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    *size = context_.extent();
    return S_OK;
}

STDMETHODIMP OleObjectPart::Advise(IAdviseSink* sink, DWORD* cookie) {
    return context_.observers().adviseObject(sink, cookie);
}

STDMETHODIMP OleObjectPart::Unadvise(DWORD cookie) {
    return context_.observers().unadviseObject(cookie);
}

STDMETHODIMP OleObjectPart::EnumAdvise(IEnumSTATDATA** sinks) {
    return context_.observers().enumerateObject(sinks);
}

STDMETHODIMP OleObjectPart::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (!status)
        return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? ControlStatus : 0;
    return S_OK;
}

STDMETHODIMP OleObjectPart::SetColorScheme(LOGPALETTE*) {
    return E_NOTIMPL;
}

/// The control takes no mnemonics: those of its host are the host's. Return and Esc are not for it either.
STDMETHODIMP OleControlPart::GetControlInfo(CONTROLINFO* info) {
    if (!info)
        return E_POINTER;
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0;
    return S_OK;
}

STDMETHODIMP OleControlPart::OnMnemonic(MSG*) {
    return S_OK;
}

STDMETHODIMP OleControlPart::OnAmbientPropertyChange(DISPID property) {
    return call("UserControl_AmbientChanged", [&] {
        context_.ambientChanged(property);
        return S_OK;
    });
}

STDMETHODIMP OleControlPart::FreezeEvents(BOOL freeze) {
    context_.freezeEvents(freeze);
    return S_OK;
}

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
