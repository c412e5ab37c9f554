#include "apps/windows/form/formsite.h"

#include <olectl.h>

namespace pixmo::form {

HRESULT SiteOwner::ambient(DISPID property, VARIANT& value) {
    switch (property) {
    case DISPID_AMBIENT_USERMODE:
        value.vt = VT_BOOL;
        value.boolVal = VARIANT_TRUE;
        return S_OK;
    case DISPID_AMBIENT_LOCALEID:
        value.vt = VT_I4;
        value.lVal = static_cast<LONG>(GetUserDefaultLCID());
        return S_OK;
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}

STDMETHODIMP ClientSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ClientSite::GetContainer(IOleContainer** container) {
    *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP InPlaceSite::GetWindow(HWND* window) {
    *window = owner_ ? owner_->window() : nullptr;
    return owner_ ? S_OK : E_FAIL;
}

STDMETHODIMP InPlaceSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    *frame = nullptr;
    *document = nullptr;
    if (!owner_)
        return E_FAIL;
    *place = owner_->place();
    *clip = *place;
    info->fMDIApp = FALSE;
    info->hwndFrame = owner_->window();
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return QueryInterface(IID_IOleInPlaceFrame, reinterpret_cast<void**>(frame));
}

STDMETHODIMP ControlSite::GetExtendedControl(IDispatch** control) {
    *control = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP Ambients::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

STDMETHODIMP Ambients::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                              UINT*) {
    if (!result)
        return E_POINTER;
    return owner_ ? owner_->ambient(member, *result) : DISP_E_MEMBERNOTFOUND;
}

STDMETHODIMP Frame::GetWindow(HWND* window) {
    *window = owner_ ? owner_->window() : nullptr;
    return owner_ ? S_OK : E_FAIL;
}

STDMETHODIMP Frame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    if (owner_)
        owner_->setActive(object);
    return S_OK;
}

STDMETHODIMP Frame::EnableModeless(BOOL enable) {
    if (owner_)
        owner_->enableModeless(enable);
    return S_OK;
}

void FormSite::forget() {
    ClientSite::forgetOwner();
    InPlaceSite::forgetOwner();
    ControlSite::forgetOwner();
    Ambients::forgetOwner();
    Frame::forgetOwner();
}

} // namespace pixmo::form
