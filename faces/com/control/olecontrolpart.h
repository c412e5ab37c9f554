#pragma once

#include "faces/com/control/part.h"

#include <ocidl.h>

namespace pixmo::com {

class OleControlPart : public Part<IOleControl> {
public:
    using Part::Part;

    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    STDMETHODIMP OnMnemonic(MSG* message) override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID property) override;
    STDMETHODIMP FreezeEvents(BOOL freeze) override;

protected:
    ~OleControlPart() = default;
};

} // namespace pixmo::com
