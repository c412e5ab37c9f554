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

/// The control while the user works with it.
class ActivePart : public Part<IOleInPlaceActiveObject> {
public:
    using Part::Part;

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    /// A key that the control's windows do not use is offered to the container; what nobody takes is left to
    /// whoever asks.
    STDMETHODIMP TranslateAccelerator(LPMSG message) override;
    STDMETHODIMP OnFrameWindowActivate(BOOL activate) override;
    STDMETHODIMP OnDocWindowActivate(BOOL activate) override;
    STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, BOOL frame) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;

protected:
    ~ActivePart() = default;
};

} // namespace pixmo::com
