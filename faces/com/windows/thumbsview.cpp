#include "faces/com/windows/thumbsview.h"

#include "core/thumbs/thumbpainter.h"
#include "faces/com/base/widetext.h"
#include "faces/com/windows/colours.h"
#include "faces/com/windows/commoncontrols.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/fonts.h"
#include "faces/com/windows/scrolling.h"

#include <cmath>
#include <oleacc.h>
#include <utility>

namespace pixmo::com {

namespace {

constexpr int NoticeMargin = 16; ///< device-independent pixels
constexpr int TipWidth = 400;

int item(LONG child) {
    return child - 1;
}

} // namespace

std::shared_ptr<ThumbsView> ThumbsView::create(HWND parent) {
    auto view = std::make_shared<ThumbsView>();
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL;
    if (!view->make({L"Pixmo.Thumbnails", CS_DBLCLKS}, {parent, style, 0, {}, L"Thumbnails"}))
        return nullptr;
    view->makeTip();
    view->applyResolution();
    return view;
}

void ThumbsView::makeTip() {
    const auto controls = CommonControls::share();
    const CommonControls::Scope scope(*controls);
    tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0, 0, 0,
                           handle(), nullptr, thisModule(), nullptr);
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = handle();
    tool.uId = reinterpret_cast<UINT_PTR>(handle());
    tool.lpszText = tipText_.data();
    SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

/// A pointer that comes to another page is told of that one.
void ThumbsView::showTip(POINT place) {
    const auto thumbs = thumbs_.lock();
    const POINT at = fromDevice(place);
    const int32_t item = thumbs ? thumbs->grid().itemAt(at.x, at.y) : -1;
    if (std::exchange(tipItem_, item) == item)
        return;
    tipText_ = item < 0 ? std::wstring() : toWide(thumbs->tip(static_cast<int16_t>(item + 1)));
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = handle();
    tool.uId = reinterpret_cast<UINT_PTR>(handle());
    tool.lpszText = tipText_.data();
    SendMessageW(tip_, TTM_POP, 0, 0);
    SendMessageW(tip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

void ThumbsView::applyResolution() {
    dpi_ = dpiOf(handle());
    font_ = makeFont({}, dpi_);
    boldFont_ = makeBold(font_.get());
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, scaled(TipWidth, dpi_));
}

double ThumbsView::ratio() const {
    return static_cast<double>(dpi_) / UsualDpi;
}

POINT ThumbsView::fromDevice(POINT place) const {
    return {static_cast<LONG>(std::floor(place.x / ratio())),
            static_cast<LONG>(std::floor(place.y / ratio()))};
}

void ThumbsView::setThumbs(const std::shared_ptr<dlgThumbs>& thumbs) {
    thumbs_ = thumbs;
    pressing_ = false;
}

Size ThumbsView::viewSize() const {
    if (!handle())
        return {};
    const SIZE size = clientSize();
    return {size.cx, size.cy};
}

void ThumbsView::resizeThumbs() {
    if (handle() && dpi_ != dpiOf(handle()))
        applyResolution();
    if (const auto thumbs = thumbs_.lock())
        thumbs->resized();
}

void ThumbsView::renew() {
    applyResolution();
    resizeThumbs();
}

void ThumbsView::mirror() {
    const auto thumbs = thumbs_.lock();
    if (!thumbs || !handle())
        return;
    const ThumbGrid& grid = thumbs->grid();
    const SCROLLINFO info =
        scrollInfoOf({grid.scrollPosition(), grid.scrollMaximum(), grid.pageStep(), grid.lineStep()});
    SetScrollInfo(handle(), SB_VERT, &info, TRUE);
    invalidate();
    tellAccessibility(*thumbs);
}

void ThumbsView::paint() {
    const Painting painting(handle());
    const auto thumbs = thumbs_.lock();
    if (!thumbs || !buffer_.resize(viewSize()))
        return;
    paintThumbs(*thumbs);
    const std::wstring notice = toWide(thumbs->notice());
    if (!notice.empty())
        writeNotice(notice);
    buffer_.copyTo(painting.dc());
}

void ThumbsView::paintThumbs(dlgThumbs& thumbs) {
    const auto fontOf = [this](bool bold) { return (bold ? boldFont_ : font_).get(); };
    const auto measure = [&](const std::string& text, bool bold) {
        const SIZE size = textSize(fontOf(bold), toWide(text));
        return Size{size.cx, size.cy};
    };
    const ThumbPainter::Look look = {systemPalette(), ratio(), GetFocus() == handle()};
    const HDC dc = buffer_.dc();
    SetBkMode(dc, TRANSPARENT);
    for (const TextRun& run : ThumbPainter(thumbs, buffer_.surface(), look, measure).paint()) {
        const Selected font(dc, fontOf(run.bold));
        SetTextColor(dc, colorRefOf(run.rgb));
        RECT place = {run.place.left, run.place.top, run.place.right(), run.place.bottom()};
        DrawTextW(dc, toWide(run.text).c_str(), -1, &place,
                  DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }
}

void ThumbsView::writeNotice(const std::wstring& notice) const {
    const HDC dc = buffer_.dc();
    const Selected font(dc, font_.get());
    const int margin = scaled(NoticeMargin, dpi_);
    const SIZE size = clientSize();
    RECT place = {margin, size.cy / 3, size.cx - margin, size.cy};
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    DrawTextW(dc, notice.c_str(), -1, &place, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
}

RECT ThumbsView::cell(int32_t item) const {
    const auto thumbs = thumbs_.lock();
    const Rectangle place = thumbs ? thumbs->grid().cell(item) : Rectangle();
    const auto device = [this](int32_t length) { return static_cast<LONG>(std::lround(length * ratio())); };
    return {device(place.left), device(place.top), device(place.right()), device(place.bottom())};
}

std::wstring ThumbsView::accessibleName(LONG child) const {
    const auto thumbs = thumbs_.lock();
    if (child == CHILDID_SELF || !thumbs)
        return L"Thumbnails";
    return toWide(thumbs->tip(static_cast<int16_t>(child)));
}

LONG ThumbsView::accessibleRole(LONG child) const {
    return child == CHILDID_SELF ? ROLE_SYSTEM_LIST : ROLE_SYSTEM_LISTITEM;
}

LONG ThumbsView::accessibleState(LONG child) const {
    const auto thumbs = thumbs_.lock();
    const bool focused = GetFocus() == handle();
    LONG state = STATE_SYSTEM_FOCUSABLE;
    if (!thumbs || child == CHILDID_SELF)
        return state | STATE_SYSTEM_MULTISELECTABLE | (focused ? STATE_SYSTEM_FOCUSED : 0);
    const ThumbGrid::Range seen = thumbs->grid().visible();
    state |= STATE_SYSTEM_SELECTABLE;
    state |= thumbs->selection().isSelected(item(child)) ? STATE_SYSTEM_SELECTED : 0;
    state |= focused && thumbs->selection().focus() == item(child) ? STATE_SYSTEM_FOCUSED : 0;
    state |= item(child) < seen.first || item(child) >= seen.end ? STATE_SYSTEM_OFFSCREEN : 0;
    return state;
}

LONG ThumbsView::accessibleCount() const {
    const auto thumbs = thumbs_.lock();
    return thumbs ? thumbs->grid().itemCount() : 0;
}

RECT ThumbsView::accessiblePlace(LONG child) const {
    RECT place = cell(item(child));
    MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

LONG ThumbsView::accessibleChildAt(POINT place) const {
    const auto thumbs = thumbs_.lock();
    ScreenToClient(handle(), &place);
    const POINT at = fromDevice(place);
    return thumbs ? thumbs->grid().itemAt(at.x, at.y) + 1 : 0;
}

LONG ThumbsView::accessibleFocus() const {
    const auto thumbs = thumbs_.lock();
    return thumbs && GetFocus() == handle() ? thumbs->selection().focus() + 1 : 0;
}

std::wstring ThumbsView::accessibleAction(LONG child) const {
    return child == CHILDID_SELF ? L"" : L"Show";
}

void ThumbsView::doAccessibleAction(LONG child) {
    const RECT place = cell(item(child));
    const POINT at = fromDevice({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    if (const auto thumbs = thumbs_.lock())
        thumbs->doubleClick(at.x, at.y);
}

void ThumbsView::selectAccessible(LONG child, bool selected) {
    if (const auto thumbs = thumbs_.lock())
        thumbs->setSelected(static_cast<int16_t>(child), selected);
}

void ThumbsView::tellAccessibility(const dlgThumbs& thumbs) {
    const int32_t focus = thumbs.selection().focus();
    if (std::exchange(toldFocus_, focus) != focus && focus >= 0 && GetFocus() == handle())
        NotifyWinEvent(EVENT_OBJECT_FOCUS, handle(), OBJID_CLIENT, focus + 1);
    const size_t selected = thumbs.selection().items().size();
    if (std::exchange(toldSelected_, selected) != selected)
        NotifyWinEvent(EVENT_OBJECT_SELECTIONWITHIN, handle(), OBJID_CLIENT, CHILDID_SELF);
}

} // namespace pixmo::com
