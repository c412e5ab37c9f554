#include "faces/com/windows/thumbswindow.h"

#include "core/base/partnames.h"
#include "faces/com/base/widetext.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/lookwatcher.h"
#include "faces/com/windows/popupmenu.h"

#include <algorithm>
#include <utility>

namespace pixmo::com {

namespace {

Rectangle unscaled(const RECT& r, int dpi) {
    const auto independent = [dpi](LONG length) { return MulDiv(length, UsualDpi, dpi); };
    return {independent(r.left), independent(r.top), independent(r.right - r.left),
            independent(r.bottom - r.top)};
}

BOOL CALLBACK addArea(HMONITOR monitor, HDC, RECT*, LPARAM target) {
    auto& areas = *reinterpret_cast<std::vector<Rectangle>*>(target);
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(monitor, &screen);
    const bool primary = (screen.dwFlags & MONITORINFOF_PRIMARY) != 0;
    areas.insert(primary ? areas.begin() : areas.end(), unscaled(screen.rcWork, dpiOf(nullptr)));
    return TRUE;
}

/// The usable areas, the one that the user starts with first.
std::vector<Rectangle> screenAreas() {
    std::vector<Rectangle> areas;
    EnumDisplayMonitors(nullptr, nullptr, addArea, reinterpret_cast<LPARAM>(&areas));
    return areas;
}

} // namespace

std::shared_ptr<ThumbsWindow> ThumbsWindow::create(HWND owner) {
    auto window = std::make_shared<ThumbsWindow>();
    const DWORD style = WS_OVERLAPPEDWINDOW & ~static_cast<DWORD>(WS_MINIMIZEBOX);
    const DWORD exStyle = WS_EX_CONTROLPARENT;
    if (!window->make({L"Pixmo.ThumbnailWindow"},
                      {owner, style | WS_CLIPCHILDREN, exStyle, {}, toWide(part_name::Thumbnails).c_str()}) ||
        !window->makeChildren())
        return nullptr;
    return window;
}

bool ThumbsWindow::makeChildren() {
    icons_.giveTo(handle());
    toolbar_ = std::make_unique<CommandToolbar>(handle(), part_name::ThumbnailCommands, false,
                                                [this](const std::string& key) { run(key); });
    view_ = ThumbsView::create(handle());
    if (!view_)
        return false;
    view_->setMenu([this](POINT place) { showMenu(&dlgThumbs::viewMenu, place); });
    view_->setLeave([this] { PostMessageW(handle(), WM_CLOSE, 0, 0); });
    return true;
}

void ThumbsWindow::run(const std::string& key) {
    if (const auto thumbs = thumbs_.lock())
        thumbs->run(key);
}

void ThumbsWindow::showMenu(std::vector<MenuItem> (dlgThumbs::*which)() const, POINT place) {
    const auto thumbs = thumbs_.lock();
    const std::string key = thumbs ? popUp((*thumbs.*which)(), place, handle()) : std::string();
    if (!key.empty())
        run(key);
}

void ThumbsWindow::open(const std::shared_ptr<dlgThumbs>& thumbs) {
    if (thumbs_.lock() != thumbs)
        connectTo(thumbs);
    mirror();
    if (!IsWindowVisible(handle())) {
        place(*thumbs);
        ShowWindow(handle(), SW_SHOW);
    }
    thumbs->setShown(true);
    view_->resizeThumbs();
    mirror();
    SetForegroundWindow(handle());
    SetFocus(view_->handle());
}

void ThumbsWindow::connectTo(const std::shared_ptr<dlgThumbs>& thumbs) {
    thumbs_ = thumbs;
    view_->setThumbs(thumbs);
    const std::weak_ptr<ThumbsWindow> weak = std::static_pointer_cast<ThumbsWindow>(shared_from_this());
    thumbs->Changed.connect([weak] {
        const auto window = weak.lock();
        if (window && window->handle())
            window->mirror();
    });
}

void ThumbsWindow::end() {
    savePlace();
    thumbs_.reset();
    view_->setThumbs({});
    destroy();
}

/// Beside its owner at first.
void ThumbsWindow::place(const dlgThumbs& thumbs) {
    const int dpi = dpiOf(handle());
    RECT beside{};
    GetWindowRect(GetWindow(handle(), GW_OWNER), &beside);
    const FormPosition form =
        thumbs.LoadFormPosition(screenAreas(), dlgThumbs::usualPlace(unscaled(beside, dpi)));
    SetWindowPos(handle(), nullptr, scaled(form.left, dpi), scaled(form.top, dpi), scaled(form.width, dpi),
                 scaled(form.height, dpi), SWP_NOZORDER | SWP_NOACTIVATE);
}

void ThumbsWindow::savePlace() {
    const auto thumbs = thumbs_.lock();
    if (!thumbs || !handle() || !IsWindowVisible(handle()) || IsZoomed(handle()))
        return;
    RECT place{};
    GetWindowRect(handle(), &place);
    const Rectangle kept = unscaled(place, dpiOf(handle()));
    thumbs->SaveFormPosition({kept.left, kept.top, kept.width, kept.height});
}

void ThumbsWindow::close() {
    savePlace();
    ShowWindow(handle(), SW_HIDE);
    if (const auto thumbs = thumbs_.lock()) {
        thumbs->setShown(false);
        thumbs->SaveSettings();
    }
}

void ThumbsWindow::mirror() {
    const auto thumbs = thumbs_.lock();
    if (!thumbs)
        return;
    SetWindowTextW(handle(), toWide(thumbs->Caption()).c_str());
    toolbar_->mirror(thumbs->toolbar());
    layOutChildren();
    view_->mirror();
}

void ThumbsWindow::layOutChildren() {
    const auto thumbs = thumbs_.lock();
    if (!thumbs || !toolbar_->handle())
        return;
    const SIZE size = clientSize();
    const int top = thumbs->mnuPopToolbar ? toolbar_->heightFor(size.cx) : 0;
    toolbar_->place({0, 0, size.cx, top});
    ShowWindow(toolbar_->handle(), top > 0 ? SW_SHOWNA : SW_HIDE);
    MoveWindow(view_->handle(), 0, top, size.cx, std::max(0L, size.cy - top), TRUE);
}

void ThumbsWindow::applyLook() {
    toolbar_->renew(nullptr, GetSysColorBrush(COLOR_BTNFACE));
    view_->renew();
    mirror();
    InvalidateRect(handle(), nullptr, TRUE);
}

std::optional<LRESULT> ThumbsWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!view_)
        return std::nullopt;
    if (const auto result = toolbar_->onParentMessage(message, wParam, lParam))
        return result;
    switch (message) {
    case WM_SIZE:
        layOutChildren();
        return 0;
    case WM_SETFOCUS:
        SetFocus(view_->handle());
        return 0;
    case WM_CLOSE:
        close();
        return 0;
    case WM_ERASEBKGND: {
        RECT all{};
        GetClientRect(handle(), &all);
        FillRect(reinterpret_cast<HDC>(wParam), &all, GetSysColorBrush(COLOR_BTNFACE));
        return 1;
    }
    case WM_CONTEXTMENU:
        if (reinterpret_cast<HWND>(wParam) == toolbar_->handle())
            showMenu(&dlgThumbs::toolbarMenu, menuPlace(lParam, handle(), {0, 0}));
        return 0;
    case WM_GETMINMAXINFO: {
        const int dpi = dpiOf(handle());
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {scaled(dlgThumbs::LeastSize.width, dpi),
                                                                 scaled(dlgThumbs::LeastSize.height, dpi)};
        return 0;
    }
    case DpiChanged: {
        const RECT& wanted = *reinterpret_cast<const RECT*>(lParam);
        MoveWindow(handle(), wanted.left, wanted.top, wanted.right - wanted.left, wanted.bottom - wanted.top,
                   TRUE);
        applyLook();
        return 0;
    }
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
        tellControls(handle(), message, wParam, lParam);
        applyLook();
        return 0;
    default:
        return std::nullopt;
    }
}

} // namespace pixmo::com
