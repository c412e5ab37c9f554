#pragma once

#include "faces/com/control/part.h"

#include <oleidl.h>

namespace pixmo::com {

/// The control's place in its host's window.
class InPlacePart : public Part<IOleInPlaceObject, IOleWindow> {
public:
    using Part::Part;

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(LPCRECT place, LPCRECT clip) override;
    STDMETHODIMP ReactivateAndUndo() override;

protected:
    ~InPlacePart() = default;
};

} // namespace pixmo::com
