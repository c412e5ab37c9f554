#pragma once

#include "core/control/imageview.h"
#include "faces/com/base/facehost.h"

#include <memory>
#include <windows.h>

namespace pixmo::com {

/// One control on Windows: the core's control with the system's answers to its questions and, while it is
/// placed in a host, its windows. Knows nothing of COM. All sizes in device pixels.
class ControlFace {
public:
    /// The control is made and initialised, without a window; then the caller completes it by
    /// UserControl_InitProperties or UserControl_ReadProperties.
    explicit ControlFace(FaceHost& host);
    /// Ends the control; nothing that it does reaches the host any more.
    ~ControlFace();
    ControlFace(const ControlFace&) = delete;
    ControlFace& operator=(const ControlFace&) = delete;

    /// Never null. Every call holds it: a call may bring about the end of the face.
    std::shared_ptr<ImageView> control() const;

    /// Makes the windows as children of `parent`; when they are there they are moved to it.
    /// Null when the system refuses.
    HWND createWindow(HWND parent, const RECT& place);
    void destroyWindow();
    /// The outer window; null while there is none.
    HWND window() const;
    /// `clip` is the visible part of `place`, both in the parent's coordinates.
    void setPlace(const RECT& place, const RECT& clip);
    void show(bool visible);
    void takeFocus();

    /// The page (or what stands for it) without toolbar and status, for a host that prints or caches the
    /// control's picture. Needs no window; `target` may be a metafile's or a printer's.
    void draw(HDC target, const RECT& bounds);

    /// Whether the message was a key that the control's windows use themselves; then it has been handled.
    bool translateKey(MSG& message);
    /// Properties, ambients or system colours may have changed.
    void refresh();
    /// For how many milliseconds a transfer may be silent before it is given up.
    void setStallTimeout(int milliseconds);

private:
    class Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace pixmo::com
