#include "core/base/virtualkeys.h"
#include "faces/com/windows/keys.h"
#include "faces/com/windows/popupmenu.h"
#include "faces/com/windows/thumbsview.h"

// Mouse and keyboard over the thumbnails, all of which their object judges.
namespace pixmo::com {

std::optional<LRESULT> ThumbsView::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
    case DpiChangedAfterParent:
        resizeThumbs();
        return 0;
    case WM_KEYDOWN:
        return keyDown(static_cast<int16_t>(wParam)) ? std::optional<LRESULT>(0) : std::nullopt;
    default:
        const auto answer = onMouse(message, wParam, lParam);
        return answer ? answer : ScrolledView::onMessage(message, wParam, lParam);
    }
}

bool ThumbsView::keyDown(int16_t keyCode) {
    const auto thumbs = thumbs_.lock();
    if (keyCode != key::Escape || !leave_)
        return thumbs && thumbs->keyDown(keyCode, shiftState());
    leave_();
    return true;
}

std::optional<LRESULT> ThumbsView::onMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto thumbs = thumbs_.lock();
    if (!thumbs)
        return std::nullopt;
    const RealPoint place = fromDevice(pointOf(lParam));
    switch (message) {
    case WM_LBUTTONDOWN:
        press(mouse_button::Left, place);
        return 0;
    case WM_RBUTTONDOWN:
        press(mouse_button::Right, place);
        return 0;
    case WM_MOUSEMOVE:
        showTip(place);
        thumbs->mouse().move(place.x, place.y);
        return 0;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
        release();
        return 0;
    case WM_LBUTTONDBLCLK:
        thumbs->mouse().doubleClick(mouse_button::Left, place.x, place.y);
        return 0;
    case WM_MOUSEWHEEL:
        thumbs->mouse().wheel(notches(wParam), shiftState());
        return 0;
    default:
        return std::nullopt;
    }
}

void ThumbsView::press(int32_t button, RealPoint place) {
    SetFocus(handle());
    const auto thumbs = thumbs_.lock();
    if (!thumbs || !handle())
        return;
    if (button == mouse_button::Left)
        SetCapture(handle());
    thumbs->mouse().press(button, place.x, place.y, shiftState());
}

void ThumbsView::release() {
    if (const auto thumbs = thumbs_.lock())
        thumbs->mouse().release();
    if (GetCapture() == handle())
        ReleaseCapture();
}

void ThumbsView::showMenu(LPARAM lParam) {
    const auto thumbs = thumbs_.lock();
    const RECT place = thumbs ? toDevice(thumbs->menuPlace()) : RECT();
    if (menu_)
        menu_(menuPlace(lParam, handle(), {(place.left + place.right) / 2, (place.top + place.bottom) / 2}));
}

} // namespace pixmo::com
