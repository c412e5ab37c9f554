#include "tests/com/control/hosting/site.h"

namespace pixmo::com::test {

STDMETHODIMP ClientSitePart::SaveObject() {
    record_.called("SaveObject");
    return S_OK;
}

STDMETHODIMP ClientSitePart::GetContainer(IOleContainer** container) {
    *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP InPlaceSitePart::GetWindow(HWND* window) {
    *window = record_.window;
    return S_OK;
}

STDMETHODIMP InPlaceSitePart::OnInPlaceActivate() {
    record_.called("OnInPlaceActivate");
    return S_OK;
}

STDMETHODIMP InPlaceSitePart::OnUIActivate() {
    record_.called("OnUIActivate");
    return S_OK;
}

STDMETHODIMP InPlaceSitePart::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    *frame = makeObject<Frame>(record_).detach();
    *document = nullptr;
    *place = record_.place;
    *clip = record_.clip;
    info->fMDIApp = FALSE;
    info->hwndFrame = record_.window;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP InPlaceSitePart::OnUIDeactivate(BOOL) {
    record_.called("OnUIDeactivate");
    return S_OK;
}

STDMETHODIMP InPlaceSitePart::OnInPlaceDeactivate() {
    record_.called("OnInPlaceDeactivate");
    return S_OK;
}

STDMETHODIMP ControlSitePart::TranslateAccelerator(MSG* message, DWORD) {
    record_.keys.push_back(message->wParam);
    const bool takes = record_.takesKey ? record_.takesKey(*message) : record_.profile.takesKeys;
    return takes ? S_OK : S_FALSE;
}

STDMETHODIMP ControlSitePart::OnFocus(BOOL focused) {
    record_.called(focused ? "OnFocus(true)" : "OnFocus(false)");
    return S_OK;
}

STDMETHODIMP AmbientPart::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                 UINT*) {
    const auto found = record_.ambients.find(member);
    return found == record_.ambients.end() ? DISP_E_MEMBERNOTFOUND : VariantCopy(result, found->second.get());
}

STDMETHODIMP ServicePart::QueryService(REFGUID service, REFIID iid, void** object) {
    // The browser's own window, as a page's site offers it.
    static constexpr GUID browser{0x0002DF05, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    *object = nullptr;
    if (!record_.profile.isPage || !IsEqualGUID(service, browser))
        return E_NOINTERFACE;
    return QueryInterface(iid, object);
}

STDMETHODIMP FramePart::GetWindow(HWND* window) {
    *window = record_.window;
    return S_OK;
}

STDMETHODIMP FramePart::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    record_.active = ComPtr<IOleInPlaceActiveObject>(object);
    return S_OK;
}

STDMETHODIMP FramePart::EnableModeless(BOOL enable) {
    record_.called(enable ? "EnableModeless(true)" : "EnableModeless(false)");
    record_.modelessDepth += enable ? -1 : 1;
    return S_OK;
}

} // namespace pixmo::com::test
