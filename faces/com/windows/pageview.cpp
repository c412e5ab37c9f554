#include "faces/com/windows/pageview.h"

#include "core/control/viewpicture.h"
#include "faces/com/base/widetext.h"
#include "faces/com/windows/colours.h"
#include "faces/com/windows/fonts.h"
#include "faces/com/windows/scrolling.h"

#include <oleacc.h>

namespace pixmo::com {

namespace {

constexpr int NoticeMargin = 12; ///< device-independent pixels
constexpr UINT NoticeFormat = DT_CENTER | DT_WORDBREAK | DT_NOPREFIX;

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
    const auto page = std::make_shared<PageView>();
    page->control_ = control;
    const Making making = {parent, WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS, 0, {}, L"Page"};
    if (!page->make({L"Pixmo.Page", CS_DBLCLKS}, making))
        return nullptr;
    page->setPointer(control->lvrImage().pointer());
    control->lvrImage().Changed.connect([weak = std::weak_ptr<PageView>(page)] {
        if (const auto held = weak.lock())
            held->showBars();
    });
    return page;
}

void PageView::setFont(HFONT font, int dpi) {
    font_ = font;
    dpi_ = dpi;
    invalidate();
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

Size PageView::viewSize() const {
    if (!handle())
        return {};
    const SIZE size = clientSize();
    return {size.cx, size.cy};
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
        {systemMetric(SM_CXVSCROLL, dpi_), systemMetric(SM_CYHSCROLL, dpi_)});
    ShowScrollBar(handle(), SB_VERT, bars.vertical);
    ShowScrollBar(handle(), SB_HORZ, bars.horizontal);
    control->lvrImage().resize();
    mirrorBars();
    mirroring_ = false;
}

void PageView::mirrorBars() {
    const auto control = control_.lock();
    const LONG_PTR style = GetWindowLongPtrW(handle(), GWL_STYLE);
    const auto mirror = [&](int which, LONG_PTR flag, const ScrollBar& source) {
        const SCROLLINFO info = scrollInfoOf(source);
        if ((style & flag) != 0)
            SetScrollInfo(handle(), which, &info, TRUE);
    };
    mirror(SB_HORZ, WS_HSCROLL, control->lvrImage().horizontalBar());
    mirror(SB_VERT, WS_VSCROLL, control->lvrImage().verticalBar());
}

void PageView::scroll(int which, WORD request) {
    const auto control = control_.lock();
    if (!control)
        return;
    RasterView& view = control->lvrImage();
    const ScrollBar across = view.horizontalBar();
    const ScrollBar down = view.verticalBar();
    if (which == SB_HORZ)
        view.scrollTo(scrolledTo(handle(), which, across, request), down.position);
    else
        view.scrollTo(across.position, scrolledTo(handle(), which, down, request));
}

void PageView::paint() {
    const Painting painting(handle());
    const auto control = control_.lock();
    if (!control || !buffer_.resize(viewSize()))
        return;
    paintView(*control, buffer_.surface(), systemPalette(), GetFocus() == handle());
    const std::wstring notice = toWide(control->viewNotice());
    if (!notice.empty())
        writeNotice(notice);
    buffer_.copyTo(painting.dc());
}

/// On a plate in the middle.
void PageView::writeNotice(const std::wstring& notice) {
    const HDC dc = buffer_.dc();
    const Selected font(dc, font_ ? font_ : GetStockObject(DEFAULT_GUI_FONT));
    const int margin = scaled(NoticeMargin, dpi_);
    const SIZE view = clientSize();
    RECT text = {0, 0, view.cx - 4 * margin, 0};
    DrawTextW(dc, notice.c_str(), -1, &text, NoticeFormat | DT_CALCRECT);
    OffsetRect(&text, (view.cx - text.right) / 2, (view.cy - text.bottom) / 2);
    RECT plate = text;
    InflateRect(&plate, margin, margin);
    FillRect(dc, &plate, GetSysColorBrush(COLOR_BTNFACE));
    FrameRect(dc, &plate, GetSysColorBrush(COLOR_BTNSHADOW));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    DrawTextW(dc, notice.c_str(), -1, &text, NoticeFormat);
}

std::optional<LRESULT> PageView::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        paint();
        return 0;
    case WM_SIZE:
        showBars();
        return 0;
    case WM_HSCROLL:
        scroll(SB_HORZ, LOWORD(wParam));
        return 0;
    case WM_VSCROLL:
        scroll(SB_VERT, LOWORD(wParam));
        return 0;
    case WM_CONTEXTMENU:
        showMenu(lParam);
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_GETOBJECT:
        return answerGetObject(handle(), std::static_pointer_cast<PageView>(shared_from_this()), wParam,
                               lParam);
    default:
        break;
    }
    if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST)
        return onMouse(message, wParam, lParam);
    if (message >= WM_KEYFIRST && message <= WM_KEYLAST)
        return onKeyboard(message, wParam);
    return onMouse(message, wParam, lParam);
}

std::wstring PageView::accessibleName(LONG) const {
    const auto control = control_.lock();
    if (!control)
        return {};
    const std::string notice = control->viewNotice();
    return toWide(notice.empty() ? control->viewDescription() : notice);
}

LONG PageView::accessibleRole(LONG) const {
    return ROLE_SYSTEM_GRAPHIC;
}

LONG PageView::accessibleState(LONG) const {
    return STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_READONLY |
           (GetFocus() == handle() ? STATE_SYSTEM_FOCUSED : 0);
}

} // namespace pixmo::com
