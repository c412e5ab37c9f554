#include "core/base/ansi.h"
#include "faces/com/base/widetext.h"
#include "faces/com/windows/keys.h"
#include "faces/com/windows/pageview.h"
#include "faces/com/windows/popupmenu.h"

// Keys, mouse and wheel over the page, all of which the control judges. A handler of the host may end the
// window in any of them.
namespace pixmo::com {

std::optional<LRESULT> PageView::onKeyboard(UINT message, WPARAM wParam) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (keyDown(static_cast<int16_t>(wParam)))
            return 0;
        return std::nullopt;
    case WM_CHAR:
        keyPress(static_cast<wchar_t>(wParam));
        return 0;
    case WM_KEYUP:
    case WM_SYSKEYUP:
        keyUp(static_cast<int16_t>(wParam));
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

bool PageView::keyDown(int16_t pressed) {
    const auto control = control_.lock();
    if (!control)
        return false;
    int16_t keyCode = pressed;
    int16_t shift = shiftState();
    const bool handled = control->UserControl_KeyDown(keyCode, shift);
    keyTaken_ = keyCode == 0;
    return handled;
}

void PageView::keyPress(wchar_t character) {
    const auto control = control_.lock();
    if (!control || keyTaken_)
        return;
    int16_t keyAscii = ansiCode(toUtf8(std::wstring_view(&character, 1)));
    control->UserControl_KeyPress(keyAscii);
}

void PageView::keyUp(int16_t released) {
    int16_t shift = shiftState();
    if (const auto control = control_.lock())
        control->UserControl_KeyUp(released, shift);
}

std::optional<LRESULT> PageView::onMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto control = control_.lock();
    if (!control)
        return std::nullopt;
    const POINT place = pointOf(lParam);
    switch (message) {
    case WM_LBUTTONDOWN:
        press(mouse_button::Left, place);
        return 0;
    case WM_MBUTTONDOWN:
        press(mouse_button::Middle, place);
        return 0;
    case WM_RBUTTONDOWN:
        SetFocus(handle());
        return std::nullopt;
    case WM_LBUTTONUP:
        release(mouse_button::Left, place);
        return 0;
    case WM_MBUTTONUP:
        release(mouse_button::Middle, place);
        return 0;
    case WM_LBUTTONDBLCLK:
        control->UserControl_DblClick();
        return 0;
    case WM_MOUSEMOVE:
        control->mouse().lvrImage_MouseMove(place.x, place.y);
        return 0;
    case WM_MOUSEWHEEL:
        mouseWheel(0, notches(wParam), place);
        return 0;
    case WM_MOUSEHWHEEL:
        mouseWheel(notches(wParam), 0, place);
        return 0;
    case WM_CAPTURECHANGED:
        control->mouse().cancelDrag();
        return 0;
    case WM_SETCURSOR:
        if (LOWORD(lParam) != HTCLIENT)
            return std::nullopt;
        SetCursor(pointer_);
        return TRUE;
    default:
        return std::nullopt;
    }
}

void PageView::press(int32_t button, POINT place) {
    SetFocus(handle());
    const auto control = control_.lock();
    if (!control || !handle())
        return;
    SetCapture(handle());
    control->mouse().lvrImage_MouseDown(button, place.x, place.y);
}

// Letting the mouse go ends a drag too: the control is told first.
void PageView::release(int32_t button, POINT place) {
    const auto control = control_.lock();
    if (!control)
        return;
    const auto held = shared_from_this();
    control->mouse().release(button, place.x, place.y);
    if (GetCapture() == handle())
        ReleaseCapture();
}

void PageView::mouseWheel(double notchesX, double notchesY, POINT screen) {
    const auto control = control_.lock();
    ScreenToClient(handle(), &screen);
    if (control)
        control->mouse().lvrImage_MouseWheel(notchesX, notchesY, shiftState(), screen.x, screen.y);
}

void PageView::showMenu(LPARAM lParam) {
    const auto control = control_.lock();
    if (!control)
        return;
    const Size view = viewSize();
    const POINT place = menuPlace(lParam, handle(), {view.width / 2, view.height / 2});
    const std::string key = popUp(control->lvrImage_RightClick(), place, handle());
    if (!key.empty())
        control->runCommand(key);
}

} // namespace pixmo::com
