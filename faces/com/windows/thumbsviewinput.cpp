#include "faces/com/windows/dpi.h"
#include "faces/com/windows/keys.h"
#include "faces/com/windows/popupmenu.h"
#include "faces/com/windows/scrolling.h"
#include "faces/com/windows/thumbsview.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

// Mouse and keyboard over the thumbnails.
namespace pixmo::com {

namespace {

constexpr UINT_PTR BandTimer = 1;
constexpr UINT BandInterval = 30; ///< milliseconds

} // namespace

std::optional<LRESULT> ThumbsView::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        paint();
        return 0;
    case WM_SIZE:
    case DpiChangedAfterParent:
        resizeThumbs();
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        invalidate();
        return 0;
    case WM_VSCROLL:
        scroll(LOWORD(wParam));
        return 0;
    case WM_TIMER:
        scrollWithBand();
        return 0;
    case WM_CONTEXTMENU:
        showMenu(lParam);
        return 0;
    case WM_GETOBJECT:
        return answerGetObject(handle(), std::static_pointer_cast<ThumbsView>(shared_from_this()), wParam,
                               lParam);
    case WM_KEYDOWN: {
        const auto thumbs = thumbs_.lock();
        if (wParam == VK_ESCAPE && leave_)
            leave_();
        else if (!thumbs || !thumbs->keyDown(static_cast<int16_t>(wParam), shiftState()))
            return std::nullopt;
        return 0;
    }
    default:
        return onMouse(message, wParam, lParam);
    }
}

std::optional<LRESULT> ThumbsView::onMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto thumbs = thumbs_.lock();
    if (!thumbs)
        return std::nullopt;
    const POINT place = fromDevice(pointOf(lParam));
    switch (message) {
    case WM_LBUTTONDOWN:
        press(place);
        return 0;
    case WM_RBUTTONDOWN:
        SetFocus(handle());
        if (const int32_t item = thumbs->grid().itemAt(place.x, place.y);
            item >= 0 && !thumbs->selection().isSelected(item))
            thumbs->click(place.x, place.y, 0);
        return 0;
    case WM_MOUSEMOVE:
        showTip(pointOf(lParam));
        moveTo(place);
        return 0;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
        release();
        return 0;
    case WM_LBUTTONDBLCLK:
        thumbs->doubleClick(place.x, place.y);
        return 0;
    case WM_MOUSEWHEEL:
        turnWheel(static_cast<short>(HIWORD(wParam)));
        return 0;
    default:
        return std::nullopt;
    }
}

void ThumbsView::scroll(WORD request) {
    const auto thumbs = thumbs_.lock();
    if (!thumbs)
        return;
    const ThumbGrid& grid = thumbs->grid();
    const ScrollBar bar = {grid.scrollPosition(), grid.scrollMaximum(), grid.pageStep(), grid.lineStep()};
    thumbs->scrollTo(scrolledTo(handle(), SB_VERT, bar, request));
}

void ThumbsView::press(POINT place) {
    SetFocus(handle());
    const auto thumbs = thumbs_.lock();
    if (!thumbs || !handle())
        return;
    SetCapture(handle());
    pressing_ = true;
    pressed_ = pointer_ = place;
    pressedWith_ = shiftState();
    if (thumbs->grid().itemAt(place.x, place.y) >= 0)
        thumbs->click(place.x, place.y, pressedWith_);
    else
        thumbs->bandStart(place.x, place.y, pressedWith_);
    SetTimer(handle(), BandTimer, BandInterval, nullptr);
}

void ThumbsView::moveTo(POINT place) {
    const auto thumbs = thumbs_.lock();
    if (!thumbs || !pressing_)
        return;
    pointer_ = place;
    const bool dragged = std::abs(place.x - pressed_.x) >= GetSystemMetrics(SM_CXDRAG) ||
                         std::abs(place.y - pressed_.y) >= GetSystemMetrics(SM_CYDRAG);
    if (!thumbs->isBandShown() && dragged)
        thumbs->bandStart(pressed_.x, pressed_.y, pressedWith_);
    thumbs->bandMove(place.x, place.y);
}

void ThumbsView::release() {
    if (!std::exchange(pressing_, false))
        return;
    KillTimer(handle(), BandTimer);
    if (GetCapture() == handle())
        ReleaseCapture();
    const auto thumbs = thumbs_.lock();
    if (thumbs && thumbs->isBandShown())
        thumbs->bandEnd();
}

/// While the band is drawn beyond the edge.
void ThumbsView::scrollWithBand() {
    const auto thumbs = thumbs_.lock();
    if (!thumbs || !thumbs->isBandShown())
        return;
    const LONG bottom = fromDevice({0, viewSize().height}).y;
    const LONG beyond = pointer_.y < 0 ? pointer_.y : std::max<LONG>(0, pointer_.y - bottom);
    if (beyond == 0)
        return;
    thumbs->scrollTo(thumbs->grid().scrollPosition() + beyond / 2);
    thumbs->bandMove(pointer_.x, pointer_.y);
}

/// With Ctrl the thumbnails grow and shrink.
void ThumbsView::turnWheel(int delta) {
    constexpr int LinesANotch = 3;
    const auto thumbs = thumbs_.lock();
    wheel_ += delta;
    for (; thumbs && std::abs(wheel_) >= WHEEL_DELTA; wheel_ -= wheel_ > 0 ? WHEEL_DELTA : -WHEEL_DELTA) {
        const int direction = wheel_ > 0 ? 1 : -1;
        if (isDown(VK_CONTROL))
            direction > 0 ? thumbs->larger() : thumbs->smaller();
        else
            thumbs->scrollTo(thumbs->grid().scrollPosition() -
                             direction * LinesANotch * thumbs->grid().lineStep());
    }
}

void ThumbsView::showMenu(LPARAM lParam) {
    const auto thumbs = thumbs_.lock();
    const int32_t focus = thumbs ? thumbs->selection().focus() : -1;
    const RECT place = cell(std::max(focus, 0));
    const POINT middle = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    if (menu_)
        menu_(menuPlace(lParam, handle(), middle));
}

} // namespace pixmo::com
