#include "faces/com/windows/scrolledview.h"

#include "faces/com/base/widetext.h"
#include "faces/com/windows/colours.h"
#include "faces/com/windows/fonts.h"

namespace pixmo::com {

namespace {

constexpr UINT Lines = DT_CENTER | DT_WORDBREAK | DT_NOPREFIX;
constexpr UINT OneLine = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX;

SIZE extentOf(HDC dc, const std::wstring& text, int32_t room) {
    RECT place = {0, 0, room, 0};
    DrawTextW(dc, text.c_str(), -1, &place, Lines | DT_CALCRECT);
    return {place.right, place.bottom};
}

} // namespace

Size ScrolledView::viewSize() const {
    if (!handle())
        return {};
    const SIZE size = clientSize();
    return {size.cx, size.cy};
}

void ScrolledView::setFonts(HFONT plain, HFONT bold) {
    plain_ = plain ? plain : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    bold_ = bold ? bold : plain_;
    invalidate();
}

Size ScrolledView::measure(const std::string& text, bool bold, int32_t room) const {
    const HDC dc = buffer_.dc();
    const Selected font(dc, fontOf(bold));
    const SIZE size = room > 0 ? extentOf(dc, toWide(text), room) : textSize(fontOf(bold), toWide(text));
    return {size.cx, size.cy};
}

void ScrolledView::write(const TextRun& run) const {
    const HDC dc = buffer_.dc();
    const Selected font(dc, fontOf(run.bold));
    const std::wstring text = toWide(run.text);
    RECT place = {run.place.left, run.place.top, run.place.right(), run.place.bottom()};
    if (run.wraps)
        place.top += (run.place.height - extentOf(dc, text, run.place.width).cy) / 2;
    SetTextColor(dc, colorRefOf(run.rgb));
    DrawTextW(dc, text.c_str(), -1, &place, run.wraps ? Lines : OneLine);
}

void ScrolledView::show() {
    const Painting painting(handle());
    if (!buffer_.resize(viewSize()))
        return;
    SetBkMode(buffer_.dc(), TRANSPARENT);
    for (const TextRun& run :
         paint(buffer_.surface(),
               [this](const std::string&text, bool bold, int32_t room) { return measure(text, bold, room); }))
        write(run);
    buffer_.copyTo(painting.dc());
}

/// It stays there with nothing to scroll.
void ScrolledView::mirrorBar(int which) const {
    const ScrollBar bar = scrollBar(which);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    info.nMax = bar.maximum + bar.pageStep - 1;
    info.nPage = static_cast<UINT>(bar.pageStep);
    info.nPos = bar.position;
    SetScrollInfo(handle(), which, &info, TRUE);
}

/// Where a request of a scroll bar (SB_...) leads.
int32_t ScrolledView::scrolled(int which, WORD request) const {
    const ScrollBar bar = scrollBar(which);
    SCROLLINFO held{};
    held.cbSize = sizeof held;
    held.fMask = SIF_TRACKPOS;
    switch (request) {
    case SB_LINEUP:
        return bar.position - bar.lineStep;
    case SB_LINEDOWN:
        return bar.position + bar.lineStep;
    case SB_PAGEUP:
        return bar.position - bar.pageStep;
    case SB_PAGEDOWN:
        return bar.position + bar.pageStep;
    case SB_TOP:
        return 0;
    case SB_BOTTOM:
        return bar.maximum;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        GetScrollInfo(handle(), which, &held);
        return held.nTrackPos;
    default:
        return bar.position;
    }
}

std::optional<LRESULT> ScrolledView::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        show();
        return 0;
    case WM_HSCROLL:
        scrollTo(SB_HORZ, scrolled(SB_HORZ, LOWORD(wParam)));
        return 0;
    case WM_VSCROLL:
        scrollTo(SB_VERT, scrolled(SB_VERT, LOWORD(wParam)));
        return 0;
    case WM_CONTEXTMENU:
        showMenu(lParam);
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        invalidate();
        return 0;
    case WM_GETOBJECT:
        return answerGetObject(handle(), std::static_pointer_cast<ScrolledView>(shared_from_this()), wParam,
                               lParam);
    default:
        return std::nullopt;
    }
}

} // namespace pixmo::com
