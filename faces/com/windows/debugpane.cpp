#include "faces/com/windows/debugpane.h"

#include "faces/com/base/widetext.h"
#include "faces/com/base/window.h"
#include "faces/com/windows/fonts.h"
#include "faces/com/windows/keys.h"

#include <utility>

namespace pixmo::com {

DebugPane::DebugPane(HWND parent, std::weak_ptr<ImageView> control)
    : control_(std::move(control)),
      edit_(CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"",
                            WS_CHILD | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_READONLY |
                                ES_AUTOVSCROLL | ES_AUTOHSCROLL,
                            0, 0, 0, 0, parent, nullptr, thisModule(), nullptr)) {
    SetWindowLongPtrW(edit_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    usual_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
    SendMessageW(edit_, EM_SETLIMITTEXT, 0, 0);
}

DebugPane::~DebugPane() {
    SetWindowLongPtrW(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(usual_));
    DestroyWindow(edit_);
}

void DebugPane::setResolution(int dpi) {
    font_ = makeFixedFont(dpi);
    SendMessageW(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
}

void DebugPane::mirror(const ImageView& control) {
    const bool shown = control.commands().debugShown;
    if (shown != static_cast<bool>(IsWindowVisible(edit_)))
        ShowWindow(edit_, shown ? SW_SHOWNA : SW_HIDE);
    if (!shown)
        return;
    std::wstring wide = toWide(control.txtDebug().text());
    if (wide == shown_)
        return;
    shown_ = std::move(wide);
    SetWindowTextW(edit_, shown_.c_str());
    SendMessageW(edit_, EM_SETSEL, shown_.size(), static_cast<LPARAM>(shown_.size()));
    SendMessageW(edit_, EM_SCROLLCARET, 0, 0);
}

LRESULT CALLBACK DebugPane::procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* const pane = reinterpret_cast<DebugPane*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    const WNDPROC usual = pane->usual_;
    if (message == WM_KEYDOWN) {
        const auto control = pane->control_.lock();
        auto keyCode = static_cast<int16_t>(wParam);
        int16_t shift = shiftState();
        if (control && control->UserControl_KeyDown(keyCode, shift))
            return 0;
    }
    return CallWindowProcW(usual, handle, message, wParam, lParam);
}

} // namespace pixmo::com
