#include "faces/com/control/olecontrolpart.h"

namespace pixmo::com {

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

} // namespace pixmo::com
