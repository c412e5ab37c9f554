#pragma once

#include "core/control/imageview.h"
#include "faces/com/base/gdi.h"

#include <memory>
#include <string>
#include <windows.h>

namespace pixmo::com {

/// The control's trace, while debugging is on. Its keys are the image area's.
class DebugPane {
public:
    DebugPane(HWND parent, std::weak_ptr<ImageView> control);
    ~DebugPane();
    DebugPane(const DebugPane&) = delete;
    DebugPane& operator=(const DebugPane&) = delete;

    HWND handle() const { return edit_; }
    void mirror(const ImageView& control);
    void setResolution(int dpi);

private:
    static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    std::weak_ptr<ImageView> control_;
    HWND edit_;
    WNDPROC usual_;
    FontHandle font_;
    std::wstring shown_;
};

} // namespace pixmo::com
