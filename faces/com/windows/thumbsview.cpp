#include "faces/com/windows/thumbsview.h"

#include "core/base/partnames.h"
#include "core/thumbs/thumbpainter.h"
#include "faces/com/base/widetext.h"
#include "faces/com/windows/colours.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/fonts.h"

#include <cmath>
#include <oleacc.h>
#include <utility>

namespace pixmo::com {

namespace {

int16_t pageOf(LONG child) {
    return static_cast<int16_t>(child);
}

} // namespace

std::shared_ptr<ThumbsView> ThumbsView::create(HWND parent) {
    auto view = std::make_shared<ThumbsView>();
    const std::wstring name = toWide(part_name::Thumbnails);
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL;
    if (!view->make({L"Pixmo.Thumbnails", CS_DBLCLKS}, {parent, style, 0, {}, name.c_str()}))
        return nullptr;
    view->tip_.make(view->handle());
    view->applyResolution();
    return view;
}

/// A pointer that comes to another page is told of that one.
void ThumbsView::showTip(RealPoint place) {
    const auto thumbs = thumbs_.lock();
    std::wstring text = thumbs ? toWide(thumbs->tipAt(place.x, place.y)) : std::wstring();
    if (text == tipText_)
        return;
    tipText_ = std::move(text);
    tip_.hide();
    tip_.setText(tipText_);
}

void ThumbsView::applyResolution() {
    setDpi(dpiOf(handle()));
    font_ = makeFont({}, dpi());
    boldFont_ = makeBold(font_.get());
    setFonts(font_.get(), boldFont_.get());
    tip_.setResolution(dpi());
}

RealPoint ThumbsView::fromDevice(POINT place) const {
    return {place.x / ratio(), place.y / ratio()};
}

RECT ThumbsView::toDevice(const Rectangle& place) const {
    const auto device = [this](int32_t length) { return static_cast<LONG>(std::lround(length * ratio())); };
    return {device(place.left), device(place.top), device(place.right()), device(place.bottom())};
}

void ThumbsView::resizeThumbs() {
    if (handle() && dpi() != dpiOf(handle()))
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
    mirrorBar(SB_VERT);
    invalidate();
    tellAccessibility(*thumbs);
}

std::vector<TextRun> ThumbsView::paint(const PixelSurface& surface, const TextMeasure& measure) {
    const auto thumbs = thumbs_.lock();
    if (!thumbs)
        return {};
    return ThumbPainter(*thumbs, surface, {systemPalette(), ratio(), hasFocus()}, measure).paint();
}

ScrollBar ThumbsView::scrollBar(int) const {
    const auto thumbs = thumbs_.lock();
    return thumbs ? thumbs->grid().scrollBar() : ScrollBar();
}

void ThumbsView::scrollTo(int, int32_t position) {
    if (const auto thumbs = thumbs_.lock())
        thumbs->scrollTo(position);
}

std::wstring ThumbsView::accessibleName(LONG child) const {
    return toWide(child == CHILDID_SELF ? part_name::Thumbnails : dlgThumbs::name(pageOf(child)));
}

std::wstring ThumbsView::accessibleDescription(LONG child) const {
    const auto thumbs = thumbs_.lock();
    return child == CHILDID_SELF || !thumbs ? std::wstring() : toWide(thumbs->description(pageOf(child)));
}

LONG ThumbsView::accessibleRole(LONG child) const {
    return child == CHILDID_SELF ? ROLE_SYSTEM_LIST : ROLE_SYSTEM_LISTITEM;
}

LONG ThumbsView::accessibleState(LONG child) const {
    const auto thumbs = thumbs_.lock();
    const auto when = [](bool holds, LONG state) { return holds ? state : 0; };
    if (!thumbs || child == CHILDID_SELF)
        return STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_MULTISELECTABLE | when(hasFocus(), STATE_SYSTEM_FOCUSED);
    const dlgThumbs::Facts facts = thumbs->facts(pageOf(child));
    return STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE | when(facts.selected, STATE_SYSTEM_SELECTED) |
           when(hasFocus() && facts.focus, STATE_SYSTEM_FOCUSED) | when(facts.loading, STATE_SYSTEM_BUSY) |
           when(!facts.seen, STATE_SYSTEM_OFFSCREEN);
}

LONG ThumbsView::accessibleCount() const {
    const auto thumbs = thumbs_.lock();
    return thumbs ? thumbs->grid().itemCount() : 0;
}

RECT ThumbsView::accessiblePlace(LONG child) const {
    const auto thumbs = thumbs_.lock();
    RECT place = thumbs ? toDevice(thumbs->grid().cell(child - 1)) : RECT();
    MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

LONG ThumbsView::accessibleChildAt(POINT place) const {
    const auto thumbs = thumbs_.lock();
    ScreenToClient(handle(), &place);
    const RealPoint at = fromDevice(place);
    return thumbs ? thumbs->pageAt(at.x, at.y) : 0;
}

LONG ThumbsView::accessibleFocus() const {
    const auto thumbs = thumbs_.lock();
    return thumbs && hasFocus() ? thumbs->selection().focus() + 1 : 0;
}

std::wstring ThumbsView::accessibleAction(LONG child) const {
    return child == CHILDID_SELF ? L"" : L"Show";
}

void ThumbsView::doAccessibleAction(LONG child) {
    const auto thumbs = thumbs_.lock();
    if (thumbs && child != CHILDID_SELF && child <= accessibleCount())
        thumbs->ItemSelected.raise(pageOf(child));
}

void ThumbsView::selectAccessible(LONG child, bool selected) {
    if (const auto thumbs = thumbs_.lock())
        thumbs->setSelected(pageOf(child), selected);
}

void ThumbsView::tellAccessibility(dlgThumbs& thumbs) const {
    const dlgThumbs::Told changes = thumbs.takeChanges();
    if (changes.focus && hasFocus())
        NotifyWinEvent(EVENT_OBJECT_FOCUS, handle(), OBJID_CLIENT, thumbs.selection().focus() + 1);
    if (changes.selection)
        NotifyWinEvent(EVENT_OBJECT_SELECTIONWITHIN, handle(), OBJID_CLIENT, CHILDID_SELF);
}

} // namespace pixmo::com
