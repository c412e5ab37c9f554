#include "faces/com/windows/tip.h"

#include "faces/com/base/window.h"
#include "faces/com/windows/dpi.h"

namespace pixmo::com {

namespace {

constexpr int Width = 400; ///< device-independent pixels

} // namespace

void Tip::make(HWND window) {
    const CommonControls::Scope scope(*controls_);
    window_ = window;
    tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0, 0, 0,
                           GetParent(window), nullptr, thisModule(), nullptr);
    send(TTM_ADDTOOLW, {});
}

void Tip::setText(const std::wstring& text) {
    send(TTM_UPDATETIPTEXTW, text);
}

void Tip::setResolution(int dpi) const {
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, scaled(Width, dpi));
}

void Tip::send(UINT message, std::wstring text) const {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = GetParent(window_);
    tool.uId = reinterpret_cast<UINT_PTR>(window_);
    tool.lpszText = text.data();
    SendMessageW(tip_, message, 0, reinterpret_cast<LPARAM>(&tool));
}

} // namespace pixmo::com
