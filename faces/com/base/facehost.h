#pragma once

#include "core/platform/propertyvalue.h"

#include <string>
#include <windows.h>

namespace pixmo::com {

/// What the windows of one control ask of whatever they are placed in: the COM object answers from its
/// container, a plain program answers for itself. Called on the control's thread only; outlives the face.
class FaceHost {
public:
    virtual ~FaceHost() = default;

    /// False while the host designs a form.
    virtual bool userMode() const = 0;
    virtual Colour ambientBackColor() const = 0;
    virtual Font ambientFont() const = 0;
    virtual bool rightToLeft() const = 0;
    /// A persisted property has a new value.
    virtual void propertyChanged(const std::string& name) = 0;

    /// The window that owns modal dialogs, the host's top window; null when there is none.
    virtual HWND ownerWindow() const = 0;
    /// Called with false before a modal dialog opens, with true after it has closed; always in pairs.
    virtual void enableModeless(bool enable) = 0;
    /// The focus has come to one of the control's windows, by the user's hand.
    virtual void activated() = 0;
    /// The host may forbid what reaches beyond the window: printing without a dialog, writing files.
    virtual bool mayWriteFiles() const = 0;
};

} // namespace pixmo::com
