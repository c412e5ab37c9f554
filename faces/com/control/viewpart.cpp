#include "faces/com/control/viewpart.h"

namespace pixmo::com {

STDMETHODIMP ViewPart::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target, LPCRECTL bounds,
                            LPCRECTL, BOOL(CALLBACK*)(ULONG_PTR), ULONG_PTR) {
    return call("Draw", [&]() -> HRESULT {
        checkPointer(bounds);
        if (aspect != DVASPECT_CONTENT && aspect != DVASPECT_OPAQUE)
            return DV_E_DVASPECT;
        if (!target)
            return E_INVALIDARG;
        const RECT place{bounds->left, bounds->top, bounds->right, bounds->bottom};
        const int saved = SaveDC(target);
        context_.readyFace().draw(target, place);
        RestoreDC(target, saved);
        return S_OK;
    });
}

STDMETHODIMP ViewPart::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colours) {
    if (!colours)
        return E_POINTER;
    *colours = nullptr;
    return S_FALSE;
}

STDMETHODIMP ViewPart::Freeze(DWORD, LONG, void*, DWORD*) {
    return E_NOTIMPL;
}

STDMETHODIMP ViewPart::Unfreeze(DWORD) {
    return E_NOTIMPL;
}

STDMETHODIMP ViewPart::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    return call("SetAdvise", [&] {
        context_.observers().adviseView(aspects, flags, sink);
        if (sink && (flags & ADVF_PRIMEFIRST) != 0)
            context_.pictureChanged();
        return S_OK;
    });
}

STDMETHODIMP ViewPart::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    context_.observers().view(aspects, flags, sink);
    return S_OK;
}

STDMETHODIMP ViewPart::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) {
    if (!size)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    *size = context_.extent();
    return S_OK;
}

STDMETHODIMP ViewPart::GetRect(DWORD aspect, LPRECTL rectangle) {
    if (!rectangle)
        return E_POINTER;
    *rectangle = {};
    if (aspect != DVASPECT_CONTENT && aspect != DVASPECT_OPAQUE)
        return DV_E_DVASPECT;
    rectangle->right = context_.extent().cx;
    rectangle->bottom = context_.extent().cy;
    return S_OK;
}

STDMETHODIMP ViewPart::GetViewStatus(DWORD* status) {
    if (!status)
        return E_POINTER;
    *status = VIEWSTATUS_OPAQUE;
    return S_OK;
}

STDMETHODIMP ViewPart::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG, DWORD* result) {
    if (!bounds || !result)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return E_FAIL;
    *result = PtInRect(bounds, point) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP ViewPart::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rectangle, LONG, DWORD* result) {
    if (!bounds || !rectangle || !result)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return E_FAIL;
    RECT common{};
    *result = IntersectRect(&common, bounds, rectangle) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP ViewPart::GetNaturalExtent(DWORD, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*, LPSIZEL) {
    return E_NOTIMPL;
}

} // namespace pixmo::com
