#pragma once

#include "faces/com/base/facelink.h"

namespace pixmo::com {

/// Closes the dialog that the system shows of its own over the host's window, a message box for example, when
/// the face ends meanwhile: it is cancelled. Lives as long as the call that shows it.
class DialogCloser {
public:
    /// The link outlives this object.
    explicit DialogCloser(FaceLink& link);
    ~DialogCloser();
    DialogCloser(const DialogCloser&) = delete;
    DialogCloser& operator=(const DialogCloser&) = delete;

    /// Over which the dialog is to be shown.
    HWND owner() const { return owner_; }

private:
    FaceLink& link_;
    HWND owner_;
    size_t connection_;
};

} // namespace pixmo::com
