#include "faces/com/control/placeparts.h"

namespace pixmo::com {

STDMETHODIMP InPlacePart::GetWindow(HWND* window) {
    if (!window)
        return E_POINTER;
    *window = context_.face() ? context_.face()->window() : nullptr;
    return *window ? S_OK : E_FAIL;
}

STDMETHODIMP InPlacePart::ContextSensitiveHelp(BOOL) {
    return E_NOTIMPL;
}

STDMETHODIMP InPlacePart::InPlaceDeactivate() {
    return call("InPlaceDeactivate", [&] {
        context_.inPlace().deactivate();
        return S_OK;
    });
}

STDMETHODIMP InPlacePart::UIDeactivate() {
    return call("UIDeactivate", [&] {
        context_.inPlace().endUse();
        return S_OK;
    });
}

STDMETHODIMP InPlacePart::SetObjectRects(LPCRECT place, LPCRECT clip) {
    return call("SetObjectRects", [&] {
        checkPointer(place);
        context_.inPlace().setPlace(*place, clip ? *clip : *place);
        return S_OK;
    });
}

STDMETHODIMP InPlacePart::ReactivateAndUndo() {
    return INPLACE_E_NOTUNDOABLE;
}

STDMETHODIMP ActivePart::GetWindow(HWND* window) {
    if (!window)
        return E_POINTER;
    *window = context_.face() ? context_.face()->window() : nullptr;
    return *window ? S_OK : E_FAIL;
}

STDMETHODIMP ActivePart::ContextSensitiveHelp(BOOL) {
    return E_NOTIMPL;
}

STDMETHODIMP ActivePart::TranslateAccelerator(LPMSG message) {
    return call("TranslateAccelerator", [&]() -> HRESULT {
        checkPointer(message);
        ControlFace* const face = context_.face();
        if (face && face->window() && face->translateKey(*message))
            return S_OK;
        return context_.host().takesKey(*message) ? S_OK : S_FALSE;
    });
}

STDMETHODIMP ActivePart::OnFrameWindowActivate(BOOL) {
    return S_OK;
}

STDMETHODIMP ActivePart::OnDocWindowActivate(BOOL) {
    return S_OK;
}

STDMETHODIMP ActivePart::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) {
    return S_OK;
}

/// The host shows a modal window: the control's own, which are modal too, cannot be open then.
STDMETHODIMP ActivePart::EnableModeless(BOOL) {
    return S_OK;
}

} // namespace pixmo::com
