#include "faces/com/windows/pageview.h"

#include "core/base/partnames.h"
#include "core/control/viewpicture.h"
#include "faces/com/base/widetext.h"
#include "faces/com/windows/colours.h"

#include <oleacc.h>

namespace pixmo::com {

namespace {

LPCWSTR cursorOf(int32_t code) {
    switch (static_cast<Pointer>(code)) {
    case Pointer::Cross:
        return IDC_CROSS;
    case Pointer::ArrowHourglass:
        return IDC_APPSTARTING;
    case Pointer::SizeAll:
        return IDC_SIZEALL;
    default:
        return IDC_ARROW;
    }
}

} // namespace

std::shared_ptr<PageView> PageView::create(HWND parent, const std::shared_ptr<ImageView>& control) {
    auto page = std::make_shared<PageView>();
    page->control_ = control;
    const std::wstring name = toWide(part_name::Page);
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS;
    if (!page->make({L"Pixmo.Page", CS_DBLCLKS}, {parent, style, 0, {}, name.c_str()}))
        return nullptr;
    page->setPointer(control->lvrImage().pointer());
    control->lvrImage().Changed.connect([weak = std::weak_ptr<PageView>(page)] {
        if (const auto held = weak.lock())
            held->showBars();
    });
    return page;
}

void PageView::setFont(HFONT font, int dpi) {
    setDpi(dpi);
    setFonts(font, font);
}

void PageView::refresh() {
    if (!handle())
        return;
    invalidate();
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, handle(), OBJID_CLIENT, CHILDID_SELF);
}

void PageView::setPointer(int32_t code) {
    pointer_ = LoadCursorW(nullptr, cursorOf(code));
    POINT place{};
    GetCursorPos(&place);
    if (handle() && WindowFromPoint(place) == handle())
        SetCursor(pointer_);
}

void PageView::showBars() {
    const auto control = control_.lock();
    if (!control || mirroring_ || !handle())
        return;
    mirroring_ = true;
    RECT whole{};
    GetWindowRect(handle(), &whole);
    const ViewGeometry::Bars bars = control->lvrImage().geometry().barsIn(
        {whole.right - whole.left, whole.bottom - whole.top},
        {systemMetric(SM_CXVSCROLL, dpi()), systemMetric(SM_CYHSCROLL, dpi())});
    ShowScrollBar(handle(), SB_VERT, bars.vertical);
    ShowScrollBar(handle(), SB_HORZ, bars.horizontal);
    control->lvrImage().resize();
    const LONG_PTR style = GetWindowLongPtrW(handle(), GWL_STYLE);
    if ((style & WS_HSCROLL) != 0)
        mirrorBar(SB_HORZ);
    if ((style & WS_VSCROLL) != 0)
        mirrorBar(SB_VERT);
    mirroring_ = false;
}

ScrollBar PageView::scrollBar(int which) const {
    const auto control = control_.lock();
    if (!control)
        return {};
    const RasterView& view = control->lvrImage();
    return which == SB_HORZ ? view.horizontalBar() : view.verticalBar();
}

void PageView::scrollTo(int which, int32_t position) {
    const auto control = control_.lock();
    if (!control)
        return;
    RasterView& view = control->lvrImage();
    const bool across = which == SB_HORZ;
    view.scrollTo(across ? position : view.horizontalBar().position,
                  across ? view.verticalBar().position : position);
}

std::vector<TextRun> PageView::paint(const PixelSurface& surface, const TextMeasure& measure) {
    const auto control = control_.lock();
    return control ? paintView(*control, surface, systemPalette(), hasFocus(), measure)
                   : std::vector<TextRun>();
}

std::optional<LRESULT> PageView::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SIZE) {
        showBars();
        return 0;
    }
    if (message == WM_GETDLGCODE)
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    if (message >= WM_KEYFIRST && message <= WM_KEYLAST)
        return onKeyboard(message, wParam);
    if (const auto answer = onMouse(message, wParam, lParam))
        return answer;
    const auto answer = ScrolledView::onMessage(message, wParam, lParam);
    if (message == WM_SETFOCUS && activated_)
        activated_();
    return answer;
}

std::wstring PageView::accessibleName(LONG) const {
    const auto control = control_.lock();
    return control ? toWide(control->viewDescription()) : std::wstring();
}

LONG PageView::accessibleRole(LONG) const {
    return ROLE_SYSTEM_GRAPHIC;
}

LONG PageView::accessibleState(LONG) const {
    return STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_READONLY | (hasFocus() ? STATE_SYSTEM_FOCUSED : 0);
}

} // namespace pixmo::com
