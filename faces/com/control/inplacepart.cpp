#include "faces/com/control/inplacepart.h"

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

} // namespace pixmo::com
